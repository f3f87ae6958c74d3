// L'analyse du Mac simulé, autant de fois que demandé. Affiche la durée d'une en nanosecondes.
#include "diagnostic/diagnostic.hpp"
#include "mesures/commun/duree.h"

#include <cstdio>
#include <cstdlib>

int main(int nombre, char** arguments) {
    const long tours = nombre == 2 ? std::atol(arguments[1]) : 0;
    if (tours <= 0) {
        std::fputs("Usage : analyse TOURS\n", stderr);
        return 2;
    }
    const long long debut = nanosecondes();
    for (long i = 0; i < tours; ++i) {
        if (!Diagnostic::analyser().nettoyageNecessaire()) {
            std::fputs("Le Mac simulé ne répond pas comme prévu.\n", stderr);
            return 1;
        }
    }
    std::printf("%lld\n", (nanosecondes() - debut) / tours);
    return 0;
}
