// Journal::note, autant de fois que demandé. Affiche la durée d'un message en nanosecondes.
#include "mesures/commun/duree.h"
#include "support/journal.hpp"

#include <cstdio>
#include <cstdlib>

int main(int nombre, char** arguments) {
    if (nombre != 3) {
        std::fputs("Usage : noter TOURS MESSAGE\n", stderr);
        return 2;
    }
    const long tours = std::atol(arguments[1]);
    const std::string message = arguments[2];
    const long long debut = nanosecondes();
    for (long i = 0; i < tours; ++i) {
        Journal::shared().note(message);
    }
    std::printf("%lld\n", (nanosecondes() - debut) / tours);
    return 0;
}
