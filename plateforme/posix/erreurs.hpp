// Phrases françaises pour les erreurs du système, avec le chemin en cause. Réservé à plateforme/.
#pragma once

#include <string>

namespace plateforme::natif {

// « chemin » : cause. `code` est une valeur d'errno.
std::string decrireErreur(int code, const std::string& chemin);

} // namespace plateforme::natif
