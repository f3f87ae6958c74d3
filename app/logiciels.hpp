// Le guide : comment choisir l'émetteur dans chaque logiciel lumière. Fil principal.
#pragma once

#include <string>
#include <vector>

struct Logiciels {
    struct Fiche {
        std::string nom;
        std::string consigne;
    };

    // Les fiches dans l'ordre de la langue de l'utilisateur, « Autre logiciel » en dernier.
    static std::vector<Fiche> liste();
};
