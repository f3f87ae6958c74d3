// Ce qui dépend de la langue et du fuseau de l'utilisateur. N'importe quel fil.
#pragma once

#include <string>

namespace plateforme {

// Vrai quand `a` se range strictement avant `b` dans la langue de l'utilisateur, sans égard à la
// casse (localizedCaseInsensitiveCompare).
bool seRangeAvant(const std::string& a, const std::string& b);

// L'instant présent, heure locale, sous la forme « 2024-05-17 14:03:09 ».
std::string horodatageLocal();

} // namespace plateforme
