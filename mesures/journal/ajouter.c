/* Référence : ouvrir, ajouter la ligne, fermer, autant de fois que demandé. Affiche la durée d'un
   tour en nanosecondes. */
#include "mesures/commun/duree.h"

#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

int main(int nombre, char** arguments) {
    if (nombre != 4) {
        fprintf(stderr, "Usage : ajouter TOURS FICHIER LIGNE\n");
        return 2;
    }
    const long tours = atol(arguments[1]);
    const size_t longueur = strlen(arguments[3]);
    const long long debut = nanosecondes();
    for (long i = 0; i < tours; ++i) {
        const int fichier = open(arguments[2], O_WRONLY | O_APPEND | O_CREAT, 0644);
        if (fichier < 0 || write(fichier, arguments[3], longueur) != (ssize_t)longueur) {
            perror(arguments[2]);
            return 1;
        }
        close(fichier);
    }
    printf("%lld\n", (nanosecondes() - debut) / tours);
    return 0;
}
