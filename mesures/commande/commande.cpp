// Systeme::commande, autant de fois que demandé. Affiche la durée d'un tour en nanosecondes.
#include "mesures/commun/duree.h"
#include "support/systeme.hpp"

#include <cstdio>
#include <cstdlib>

int main(int nombre, char** arguments) {
    if (nombre < 3) {
        std::fputs("Usage : commande TOURS PROGRAMME [ARGUMENT…]\n", stderr);
        return 2;
    }
    const long tours = std::atol(arguments[1]);
    const std::vector<std::string> suite(arguments + 3, arguments + nombre);
    const long long debut = nanosecondes();
    for (long i = 0; i < tours; ++i) {
        if (Systeme::commande(arguments[2], suite).code != 0) {
            return 1;
        }
    }
    std::printf("%lld\n", (nanosecondes() - debut) / tours);
    return 0;
}
