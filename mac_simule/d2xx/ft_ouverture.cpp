#include "mac_simule/d2xx/appareil.hpp"
#include "mac_simule/d2xx/appels.hpp"

#include <exception>

FT_STATUS FT_Open(std::int32_t rang, FT_HANDLE* poignee) {
    FT_STATUS statut = d2xx::parametreInvalide;
    if (poignee != nullptr) {
        try {
            statut = d2xx::Appareil::unique().ouvrir(rang, *poignee);
        } catch (const std::exception&) {
            statut = d2xx::autreErreur; // plus de mémoire, de fil ou de descripteur
        }
    }
    return d2xx::noterAppel("FT_Open " + std::to_string(rang), statut);
}
