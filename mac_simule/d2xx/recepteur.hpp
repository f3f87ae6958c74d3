// Récepteur DMX512 virtuel : il décode la ligne, non les appels, et dit quelle limite est
// enfreinte.
//
// On lui donne les événements de la ligne dans l'ordre du temps ; une trame est rendue quand la
// rupture suivante, ou la fin, la termine. Valeur pure : ni horloge, ni fil, ni allocation.
#pragma once

#include "mac_simule/d2xx/ligne.hpp"

#include <cstddef>
#include <optional>
#include <span>

namespace d2xx {

// Du plus grave au plus bénin. Jusqu'à `codeDepart` compris, le projecteur ne tire rien de la trame
// ; après, il la lit, mais l'émetteur sort des limites. L'ordre est celui du fichier de réception.
enum class Verdict : std::uint8_t {
    correct,
    ligneMalReglee,   // débit, format ou contrôle de flux qui ne sont pas ceux de DMX512
    ruptureCourte,    // moins de 88 µs
    marqueCourte,     // moins de 8 µs entre la rupture et le premier créneau
    trameCoupee,      // la rupture suivante arrive avant le départ des derniers créneaux
    nombreDeCreneaux, // autre que 513
    codeDepart,       // autre que 0
    rupturesEspacees, // plus d'une seconde depuis la rupture d'avant : le signal s'était perdu
    ruptureEmetteur,  // lisible, mais sous les 92 µs demandées à un émetteur
    marqueEmetteur,   // lisible, mais sous les 12 µs demandées à un émetteur
};

struct Trame {
    Nanosecondes debut = 0;      // début de la rupture
    Nanosecondes intervalle = 0; // depuis la rupture d'avant ; 0 : première trame
    Nanosecondes rupture = 0;
    Nanosecondes marque = 0; // de la fin de la rupture au premier créneau
    Nanosecondes fin = 0;    // fin du dernier créneau
    std::size_t creneaux = 0;
    std::uint8_t codeDepart = 0;
    std::uint8_t niveauMin = 255; // des circuits reçus
    std::uint8_t niveauMax = 0;
    bool ligneDmx = true;
    bool coupee = false;

    [[nodiscard]] Verdict verdict() const;
};

// Vrai quand le projecteur suit les niveaux d'une trame de ce verdict.
constexpr bool comprise(Verdict verdict) {
    return verdict == Verdict::correct || verdict > Verdict::codeDepart;
}

class Recepteur {
public:
    // La ligne passe à l'état de rupture. Une rupture déjà en cours continue.
    std::optional<Trame> rupture(Nanosecondes instant);

    // La ligne revient au repos.
    void marque(Nanosecondes instant);

    // Des créneaux se suivent à partir de `premier`. Pendant une rupture, ils sont perdus.
    void octets(Nanosecondes premier, const Ligne& ligne, std::span<const std::uint8_t> creneaux);

    // Plus rien ne viendra : les créneaux qui ne sont pas partis sont perdus.
    std::optional<Trame> fin(Nanosecondes instant);

private:
    std::optional<Trame> terminer(Nanosecondes instant);

    std::optional<Trame> trame_;
    bool enRupture_ = false;
    std::optional<Nanosecondes> rupturePrecedente_;
};

} // namespace d2xx
