// Récepteur DMX512 virtuel : il décode la ligne, non les appels, et dit quelle limite est
// enfreinte.
//
// On lui donne les événements de la ligne dans l'ordre du temps ; une trame est rendue quand le
// BREAK suivant, ou la fin, la termine. Valeur pure : ni horloge, ni fil, ni allocation.
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
    breakCourt,       // moins de 88 µs
    marqueCourte,     // moins de 8 µs entre le BREAK et le premier créneau
    trameCoupee,      // le BREAK suivant arrive avant le départ des derniers créneaux
    nombreDeCreneaux, // autre que 513
    codeDepart,       // autre que 0
    breaksEspaces,    // plus d'une seconde depuis le BREAK d'avant : le signal s'était perdu
    breakEmetteur,    // lisible, mais sous les 92 µs demandées à un émetteur
    marqueEmetteur,   // lisible, mais sous les 12 µs demandées à un émetteur
};

struct Trame {
    Nanosecondes debut = 0;      // début du BREAK
    Nanosecondes intervalle = 0; // depuis le BREAK d'avant ; 0 : première trame
    Nanosecondes dureeBreak = 0;
    Nanosecondes marque = 0; // de la fin du BREAK au premier créneau
    Nanosecondes fin = 0;    // fin du dernier créneau
    std::size_t creneaux = 0;
    std::uint8_t codeDepart = 0;
    std::uint8_t niveauMin = 255; // des canaux reçus
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
    // Un BREAK déjà en cours continue.
    std::optional<Trame> commencerBreak(Nanosecondes instant);

    // La ligne revient au repos.
    void finirBreak(Nanosecondes instant);

    // Des créneaux se suivent à partir de `premier`. Pendant un BREAK, ils sont perdus.
    void octets(Nanosecondes premier, const Ligne& ligne, std::span<const std::uint8_t> creneaux);

    // Plus rien ne viendra : les créneaux qui ne sont pas partis sont perdus.
    std::optional<Trame> fin(Nanosecondes instant);

private:
    std::optional<Trame> trame_;
    bool enBreak_ = false;
    std::optional<Nanosecondes> breakPrecedent_;
};

} // namespace d2xx
