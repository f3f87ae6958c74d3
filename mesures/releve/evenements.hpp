// Lecture d'un relevé d'événements DMX, version 1 : une ligne par événement, « <instant> <nom>
// <valeur>[ <suite>] », instants en nanosecondes ; une ligne qui commence par # est un commentaire.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace releve {

struct Evenement {
    std::int64_t instant = 0;
    std::string_view nom; // dans le texte lu
    std::uint64_t valeur = 0;
};

struct Lecture {
    std::vector<Evenement> evenements;
    std::size_t ligneFautive =
        0; // numéro de la première ligne qui n'est pas de la forme ; 0 : aucune
};

// Lit jusqu'à la fin, ou jusqu'au premier octet nul : un enregistreur interrompu laisse des zéros,
// et peut-être une dernière ligne entamée, qu'on laisse. La lecture s'arrête à la première ligne
// fautive.
Lecture lire(std::string_view texte);

} // namespace releve
