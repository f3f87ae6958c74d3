// Les lignes de la page de résultat, d'après une analyse. Fonction pure.
#pragma once

#include "diagnostic/diagnostic.hpp"

#include <string>
#include <vector>

struct LigneResultat {
    std::string icone;
    std::string texte;
};

std::vector<LigneResultat> lignesResultat(const Diagnostic& d, bool redemarrageEnAttente);
