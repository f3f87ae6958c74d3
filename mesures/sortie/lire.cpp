// Systeme::commande sur un programme très bavard. Affiche la durée, du lancement au texte décodé.
#include "mesures/commun/duree.h"
#include "support/systeme.hpp"

#include <cstdio>

int main(int nombre, char** arguments) {
    if (nombre < 2) {
        std::fputs("Usage : lire PROGRAMME [ARGUMENT…]\n", stderr);
        return 2;
    }
    const std::vector<std::string> suite(arguments + 2, arguments + nombre);
    const long long debut = nanosecondes();
    const Systeme::Resultat resultat = Systeme::commande(arguments[1], suite);
    const long long duree = nanosecondes() - debut;
    std::fprintf(stderr, "%zu octets\n", resultat.sortie.size());
    std::printf("%lld\n", duree);
    return resultat.code == 0 ? 0 : 1;
}
