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
    if (actif_) {
        return;
    }
    actif_ = true;
    try {
        thread_ = std::thread([faible = weak_from_this()] {
            if (const std::shared_ptr<TestDMX> session = faible.lock()) {
                session->envoyerTrames();
            }
        });
    } catch (const std::system_error&) {
        // Sans fil, rien ne part : le prochain bouton de motif réessaie.
        actif_ = false;
    }
}

// Le corps du fil des trames. Les statuts ne sont pas regardés : un émetteur débranché n'arrête pas
// la boucle, c'est la réponse de l'utilisateur devant son projecteur qui fait le verdict.
void TestDMX::envoyerTrames() {
    if (lib_ == nullptr) {
        return;
    }
    const FonctionsTrame ft(lib_);
    if (!ft.completes()) {
        return;
    }
    const plateforme::ActiviteUrgente cadence("Envoi des trames DMX512");
    std::array<std::uint8_t, kTailleTrame> trame{}; // l'octet 0, le code de départ, reste nul
    std::uint32_t ecrits = 0;
    for (std::int64_t n = 0; actif_; ++n) {
        std::fill(trame.begin() + 1, trame.end(), valeurCanaux(motifCourant(), n));
        ft.setBreakOn(handle_);
        plateforme::dormirMicrosecondes(kDureeBreak);
        // La marque qui suit dure le temps de lancer l'écriture : le DMX512 n'en demande pas plus.
        ft.setBreakOff(handle_);
        ft.write(handle_, trame.data(), static_cast<std::uint32_t>(trame.size()), &ecrits);
        plateforme::dormirMicrosecondes(kPauseApresTrame);
    }
}
