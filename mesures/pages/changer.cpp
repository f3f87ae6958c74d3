// Change de page par les boutons, autant de fois que demandé.
//
//     changer duree|memoire TOURS BOUTON… -- BOUTON…
//
// Presse une fois les premiers boutons, puis tour à tour les suivants. « duree » affiche la durée
// de chaque changement, en nanosecondes ; « memoire », la mémoire résidente après cent tours puis à
// la fin, en kilooctets.
#include "app/delegue.hpp"
#include "mesures/commun/memoire.h"
#include "mesures/pages/parcours.hpp"
#include "plateforme/application.hpp"

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

constexpr long kTours = 100; // le temps que chaque tampon prenne sa taille

struct Demande {
    bool memoire = false;
    long tours = 0;
    std::vector<std::string> avant;
    std::vector<std::string> boucle;
};

Demande lireDemande(int nombre, char** arguments) {
    Demande demande;
    if (nombre < 3) {
        return demande;
    }
    demande.memoire = std::string_view(arguments[1]) == "memoire";
    demande.tours = std::atol(arguments[2]);
    auto* ou = &demande.avant;
    for (int i = 3; i < nombre; ++i) {
        if (std::string_view(arguments[i]) == "--") {
            ou = &demande.boucle;
        } else {
            ou->emplace_back(arguments[i]);
        }
    }
    return demande;
}

int conduire(const Demande& demande) {
    mesures::Parcours parcours;
    for (const std::string& titre : demande.avant) {
        if (!parcours.presser(titre)) {
            return 1;
        }
    }
    parcours.oublier();
    for (long tour = 0; tour < demande.tours; ++tour) {
        if (!parcours.presser(
                demande.boucle[static_cast<std::size_t>(tour) % demande.boucle.size()])) {
            return 1;
        }
        if (demande.memoire) {
            parcours.oublier(); // la mesure elle-même ne doit pas grandir
            if (tour + 1 == kTours) {
                std::printf("%ld ", memoireResidente());
            }
        }
    }
    if (demande.memoire) {
        std::printf("%ld\n", memoireResidente());
        return 0;
    }
    for (const mesures::Parcours::Changement& changement : parcours.changements()) {
        std::printf("%lld %s\n", changement.duree, changement.titre.c_str());
    }
    return 0;
}

} // namespace

int main(int nombre, char** arguments) {
    static Delegue delegue;
    const Demande demande = lireDemande(nombre, arguments);
    if (demande.boucle.empty()) {
        std::fputs("Usage : changer duree|memoire TOURS BOUTON… -- BOUTON…\n", stderr);
        return 2;
    }
    plateforme::definirDelegue(
        {[&demande] {
             delegue.applicationDidFinishLaunching();
             const int statut = conduire(demande);
             std::fflush(stdout);
             std::_Exit(statut);
         },
         [] { return Delegue::applicationShouldTerminateAfterLastWindowClosed(); }});
    plateforme::executerApplication();
    return 1;
}
