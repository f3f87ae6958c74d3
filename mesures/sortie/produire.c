/* Écrit autant d'octets que demandé, par blocs entiers : le listage d'un outil très bavard.
   Avec « accents », chaque ligne porte des caractères de deux et de trois octets. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

static const char ascii[] =
    "com.apple.driver.AppleMobileDevice\t4.0\t/Library/Apple/Extensions/AppleMobileDevice.kext\n";
static const char accents[] =
    "com.voltaris.émetteur\t4.0\t/Library/Extensions/Émetteur à trames — entrée USB.kext\n";

int main(int nombre, char** arguments) {
    if (nombre < 2) {
        fprintf(stderr, "Usage : produire OCTETS [accents]\n");
        return 2;
    }
    const char* ligne = nombre > 2 && strcmp(arguments[2], "accents") == 0 ? accents : ascii;
    static char bloc[65536];
    const size_t longueur = strlen(ligne);
    size_t pleins = 0;
    while (pleins + longueur <= sizeof bloc) {
        memcpy(bloc + pleins, ligne, longueur);
        pleins += longueur;
    }
    for (long reste = atol(arguments[1]); reste > 0;) {
        const size_t voulus = (size_t)reste < pleins ? (size_t)reste : pleins;
        const ssize_t ecrits = write(STDOUT_FILENO, bloc, voulus);
        if (ecrits < 0) {
            return 1;
        }
        reste -= ecrits;
    }
    return 0;
}
