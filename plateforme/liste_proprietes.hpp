// Listes de propriétés au format XML 1.0, celles que launchd lit.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace plateforme {

using ValeurPropriete = std::variant<bool, std::string, std::vector<std::string>>;
using DictionnairePropriete = std::vector<std::pair<std::string, ValeurPropriete>>;

struct ListeSerialisee {
    std::optional<std::string> octets; // absent : échec
    std::string erreur;
};

// Sérialise le dictionnaire en UTF-8. Échoue quand un texte porte un caractère que XML ne sait pas
// écrire. N'importe quel fil.
[[nodiscard]] ListeSerialisee serialiserListe(const DictionnairePropriete& dictionnaire);

} // namespace plateforme
