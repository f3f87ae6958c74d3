/* Affiche la durée d'un programme, de son lancement à sa fin, divisée par TOURS. */
#include "mesures/commun/duree.h"

#include <spawn.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/wait.h>

extern char** environ;

int main(int nombre, char** arguments) {
    const long tours = nombre < 3 ? 0 : atol(arguments[1]);
    if (tours <= 0) {
        fprintf(stderr, "Usage : chronometrer TOURS PROGRAMME [ARGUMENT…]\n");
        return 2;
    }
    const long long debut = nanosecondes();
    pid_t enfant;
    int etat = 0;
    if (posix_spawn(&enfant, arguments[2], NULL, NULL, arguments + 2, environ) != 0 ||
        waitpid(enfant, &etat, 0) != enfant || etat != 0) {
        fprintf(stderr, "%s ne s'exécute pas.\n", arguments[2]);
        return 1;
    }
    printf("%lld\n", (nanosecondes() - debut) / tours);
    return 0;
}
