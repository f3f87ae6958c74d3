/* Référence : lancer, lire, attendre, autant de fois que demandé. Affiche la durée d'un tour. */
#define _GNU_SOURCE
#include "mesures/commun/duree.h"
#include "mesures/commun/enfant.h"

static void executer(char** arguments) {
    char bloc[65536];
    pid_t enfant;
    const int tube = lancer(arguments, &enfant);
    while (read(tube, bloc, sizeof bloc) > 0) {
    }
    attendre(tube, enfant);
}

int main(int nombre, char** arguments) {
    if (nombre < 3) {
        fprintf(stderr, "Usage : commande_nue TOURS PROGRAMME [ARGUMENT…]\n");
        return 2;
    }
    const long tours = atol(arguments[1]);
    const long long debut = nanosecondes();
    for (long i = 0; i < tours; ++i) {
        executer(arguments + 2);
    }
    printf("%lld\n", (nanosecondes() - debut) / tours);
    return 0;
}
