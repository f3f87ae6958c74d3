// Ce qu'une liste de propriétés en XML peut porter. Réservé à plateforme/.
#pragma once

#include "plateforme/liste_proprietes.hpp"

namespace plateforme {

// L'échec de la liste dont un texte porte un caractère que XML 1.0 n'écrit pas : un caractère de
// commande, hors tabulation et fins de ligne, ou U+FFFE et U+FFFF. Absent quand tout s'écrit.
[[nodiscard]] std::optional<ListeSerialisee> refusXML(const DictionnairePropriete& dictionnaire);

} // namespace plateforme
