// Presse-papiers général. Fil principal.
#pragma once

#include <string>

namespace plateforme {

// Remplace le contenu par ce texte ; un refus du système n'est pas rapporté.
void copierTexte(const std::string& texte);

} // namespace plateforme
