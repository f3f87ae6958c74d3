#include "dmx/test_dmx.hpp"
#include "plateforme/boucle.hpp"
#include "plateforme/chargeur.hpp"

#include <algorithm>
#include <array>
#include <system_error>

namespace {

constexpr unsigned kDureeBreak = 200;         // µs, au moins
constexpr unsigned kPauseApresTrame = 30'000; // µs
constexpr std::size_t kTailleTrame = 513;     // code de départ et 512 canaux

struct FonctionsTrame {
    FonctionPoignee setBreakOn;
    FonctionPoignee setBreakOff;
    FonctionWrite write;

    explicit FonctionsTrame(void* lib)
        : setBreakOn(reinterpret_cast<FonctionPoignee>(plateforme::symbole(lib, "FT_SetBreakOn"))),
          setBreakOff(
              reinterpret_cast<FonctionPoignee>(plateforme::symbole(lib, "FT_SetBreakOff"))),
          write(reinterpret_cast<FonctionWrite>(plateforme::symbole(lib, "FT_Write"))) {}

    bool completes() const {
        return setBreakOn != nullptr && setBreakOff != nullptr && write != nullptr;
    }
};

} // namespace

void TestDMX::fixerMotif(Motif motif) {
    const std::lock_guard<std::mutex> garde(verrou_);
    motif_ = motif;
}

TestDMX::Motif TestDMX::motifCourant() {
    const std::lock_guard<std::mutex> garde(verrou_);
    return motif_;
}

void TestDMX::envoyer(Motif motif) {
    fixerMotif(motif);
    if (actif_ != nullptr) {
        return;
    }
    actif_ = std::make_shared<FilDesTrames>(lib_, handle_);
    try {
        thread_ = std::thread([faible = weak_from_this(), fil = actif_] {
            if (const std::shared_ptr<TestDMX> session = faible.lock()) {
                session->envoyerTrames(*fil);
            }
            fil->parti = true;
        });
    } catch (const std::system_error&) {
        // Sans fil, rien ne part : le prochain bouton de motif réessaie.
        actif_ = nullptr;
    }
}

// Les statuts ne sont pas regardés : un émetteur débranché n'arrête pas la boucle, c'est la réponse
// de l'utilisateur devant son projecteur qui fait le verdict.
void TestDMX::envoyerTrames(const FilDesTrames& fil) {
    using Consigne = FilDesTrames::Consigne;
    const FonctionsTrame ft(fil.lib);
    if (!ft.completes()) {
        return;
    }
    const plateforme::ActiviteUrgente cadence("Envoi des trames DMX512");
    std::array<std::uint8_t, kTailleTrame> trame{}; // l'octet 0, le code de départ, reste nul
    std::uint32_t ecrits = 0;
    for (std::int64_t n = 0; fil.consigne == Consigne::envoyer; ++n) {
        std::fill(trame.begin() + 1, trame.end(), valeurCanaux(motifCourant(), n));
        ft.setBreakOn(fil.handle);
        if (fil.consigne == Consigne::partir) {
            return;
        }
        plateforme::dormirMicrosecondes(kDureeBreak);
        // La marque qui suit dure le temps de lancer l'écriture : le DMX512 n'en demande pas plus.
        ft.setBreakOff(fil.handle);
        if (fil.consigne == Consigne::partir) {
            return;
        }
        ft.write(fil.handle, trame.data(), static_cast<std::uint32_t>(trame.size()), &ecrits);
        plateforme::dormirMicrosecondes(kPauseApresTrame);
    }
}
