// La session de l'assistant sur l'émetteur du Mac simulé, relevée par LUMIVIA_RELEVE_DMX.
//
//     session SECONDES
//
// Fait alterner les motifs plein et noir. Affiche « <instant> <valeur> » pour chaque changement de
// motif, puis « allocations <nombre> » : celles de tout le processus, une fois en régime.
#include "dmx/test_dmx.hpp"
#include "mesures/commun/duree.h"
#include "plateforme/boucle.hpp"

#include <cstdio>
#include <cstdlib>
#include <vector>

extern "C" {
#include "mesures/trames/compteur_allocations.h"
}

namespace {

constexpr unsigned kTenue = 330'000;               // µs entre deux changements de motif
constexpr std::size_t kChangementsAvantRegime = 3; // la première seconde est celle du départ

struct Changement {
    long long instant;
    int valeur;
};

} // namespace

int main(int nombre, char** arguments) {
    const double secondes = nombre == 2 ? std::atof(arguments[1]) : 0;
    if (secondes <= 0) {
        std::fputs("Usage : session SECONDES\n", stderr);
        return 2;
    }
    const auto session = TestDMX::creer();
    if (const auto message = session->ouvrir()) {
        std::fprintf(stderr, "%s\n", message->c_str());
        return 1;
    }
    const auto prevus = static_cast<std::size_t>(secondes * 1e6 / kTenue);
    std::vector<Changement> changements;
    changements.reserve(prevus);
    long auDepart = 0;
    for (std::size_t i = 0; i < prevus; ++i) {
        const bool plein = i % 2 == 0;
        session->envoyer(plein ? TestDMX::Motif::plein : TestDMX::Motif::noir);
        changements.push_back({nanosecondes(), plein ? 255 : 0});
        auDepart = i == kChangementsAvantRegime ? nombreDAllocations() : auDepart;
        plateforme::dormirMicrosecondes(kTenue);
    }
    const long allocations = nombreDAllocations() - auDepart;
    session->fermer();
    for (const Changement& changement : changements) {
        std::printf("%lld %d\n", changement.instant, changement.valeur);
    }
    std::printf("allocations %ld\n", allocations);
    return 0;
}
