// Préférences de l'utilisateur pour cette application (NSUserDefaults). Fil principal.
#pragma once

#include <optional>
#include <string>

namespace plateforme {

// Absent quand la clé n'existe pas ou ne porte pas un texte.
[[nodiscard]] std::optional<std::string> lirePreference(const std::string& cle);

// Écrites tout de suite : elles survivent à une fin brutale. Un échec n'est pas rapporté.
void ecrirePreference(const std::string& cle, const std::string& valeur);
void retirerPreference(const std::string& cle);

} // namespace plateforme
