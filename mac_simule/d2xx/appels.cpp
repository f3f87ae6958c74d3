#include "mac_simule/d2xx/appels.hpp"

#include <cstdlib>
#include <fstream>

namespace d2xx {

FT_STATUS noterAppel(const std::string& appel, FT_STATUS statut) {
    const char* fichier = std::getenv("LUMIVIA_APPELS_D2XX");
    if (fichier != nullptr) {
        // Une ligne perdue se verra dans l'essai qui la cherche.
        std::ofstream(fichier, std::ios::app)
            << (appel + " : " + std::to_string(statut) + "\n") << std::flush;
    }
    return statut;
}

} // namespace d2xx
