// Fait d'un scénario un dossier qui se tient comme un Mac.
#pragma once

#include "mac_simule/racine/scenario.hpp"

#include <filesystem>
#include <string>

namespace mac_simule {

// Crée `racine` d'après le scénario, avec les outils trouvés sous `outils`. Rend une phrase quand
// c'est impossible, et rien n'a alors été créé : le Mac est fait dans un dossier voisin, puis prend
// son nom d'un coup. `racine` est un chemin absolu, qui n'existe pas encore ou est un dossier vide.
std::string creerMac(const Scenario& scenario, const std::filesystem::path& outils,
                     const std::filesystem::path& racine);

} // namespace mac_simule
