/* Référence : garde tout ce qu'un programme écrit dans un seul tampon qui grandit. Affiche la
   durée, du lancement à la fin. */
#define _GNU_SOURCE
#include "mesures/commun/duree.h"
#include "mesures/commun/enfant.h"

int main(int nombre, char** arguments) {
    if (nombre < 2) {
        fprintf(stderr, "Usage : lire_nu PROGRAMME [ARGUMENT…]\n");
        return 2;
    }
    const long long debut = nanosecondes();
    pid_t enfant;
    const int tube = lancer(arguments + 1, &enfant);
    size_t capacite = 65536;
    size_t remplis = 0;
    char* tampon = malloc(capacite);
    for (ssize_t lus = 1; tampon != NULL && lus > 0;) {
        lus = read(tube, tampon + remplis, capacite - remplis);
        remplis += lus > 0 ? (size_t)lus : 0;
        if (remplis == capacite) {
            tampon = realloc(tampon, capacite *= 2);
        }
    }
    attendre(tube, enfant);
    const long long duree = nanosecondes() - debut;
    fprintf(stderr, "%zu octets\n", remplis);
    printf("%lld\n", duree);
    free(tampon);
    return 0;
}
