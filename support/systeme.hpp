// Les questions posées au système par ses outils en ligne de commande. Sans état, n'importe quel
// fil, plusieurs à la fois.
#pragma once

#include <string>
#include <vector>

struct Systeme {
    struct Resultat {
        // Tout ce que le programme a écrit, sortie et erreur mêlées, décodé en UTF-8 (U+FFFD à la
        // place de ce qui n'en est pas), tel quel, dernière fin de ligne comprise.
        std::string sortie;
        // Statut de fin, ou numéro du signal ; -1 quand le programme n'a pas pu être lancé.
        int code = -1;
    };

    // Lance le programme `chemin` (absolu) sans interpréteur et attend sa fin, sans limite de
    // temps. Un chemin qui ne mène pas à un programme exécutable rend un texte vide et -1 ; un
    // lancement refusé par le système rend la description de l'erreur et -1.
    static Resultat commande(const std::string& chemin,
                             const std::vector<std::string>& arguments = {});

    // Vrai quand quelque chose, fichier ou dossier, existe à ce chemin.
    static bool existe(const std::string& chemin);
};
