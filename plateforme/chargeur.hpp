// Bibliothèques chargées à l'exécution. Fil principal, sauf `symbole` (n'importe quel fil).
#pragma once

#include <string>

namespace plateforme {

struct Chargement {
    void* bibliotheque = nullptr; // nul : échec
    std::string erreur;           // texte du chargeur, vide quand il n'en donne pas
};

// Charge la bibliothèque en liant tous ses symboles tout de suite (RTLD_NOW). Le même chemin rend
// la même bibliothèque ; rien ne la décharge avant la fin du processus.
[[nodiscard]] Chargement charger(const std::string& chemin);

// Adresse d'un symbole de la bibliothèque ; nulle quand il n'y est pas.
[[nodiscard]] void* symbole(void* bibliotheque, const char* nom);

} // namespace plateforme
