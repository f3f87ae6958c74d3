// Le relevé des appels d'ouverture, de réglage et de fermeture, pour les essais : une ligne par
// appel (« FT_SetBaudRate 250000 : 0 ») ajoutée au fichier que nomme LUMIVIA_APPELS_D2XX. La boucle
// de trames n'y écrit rien.
#pragma once

#include "mac_simule/d2xx/ftd2xx.hpp"

#include <string>

namespace d2xx {

// Ajoute la ligne, quand la variable est là, et rend le statut.
FT_STATUS noterAppel(const std::string& appel, FT_STATUS statut);

} // namespace d2xx
