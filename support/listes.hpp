// Listes de textes. Fonction pure, n'importe quel fil.
#pragma once

#include <string>
#include <vector>

// Les éléments, séparés par `separateur`.
inline std::string joindre(const std::vector<std::string>& elements,
                           const std::string& separateur) {
    std::string texte;
    for (const std::string& element : elements) {
        texte += (&element == &elements.front() ? "" : separateur) + element;
    }
    return texte;
}
