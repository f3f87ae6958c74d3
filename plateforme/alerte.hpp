// Alerte modale à un seul bouton. Fil principal ; revient quand l'utilisateur l'a fermée.
#pragma once

#include <string>

namespace plateforme {

void alerte(const std::string& message, const std::string& information);

} // namespace plateforme
