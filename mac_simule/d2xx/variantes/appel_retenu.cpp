// Une bibliothèque dont un appel de trame ne revient pas tant que le fait « appel_retenu » le nomme
// : un pilote qui attend un émetteur muet. Chaque appel de trame s'inscrit au relevé des appels.
#include "mac_simule/d2xx/appareil.hpp"
#include "mac_simule/faits/faits.hpp"

namespace {

template <class Appel>
FT_STATUS passer(const char* nom, FT_HANDLE poignee, const Appel& appel) {
    while (faits::Mac::duProcessus().lire("appel_retenu") == nom) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return d2xx::noterAppel(nom, d2xx::Appareil::unique().servir(poignee, appel));
}

} // namespace

FT_STATUS FT_SetBreakOn(FT_HANDLE poignee) {
    return passer("FT_SetBreakOn", poignee, [](d2xx::Ouverture& o) { return o.basculer(true); });
}

FT_STATUS FT_SetBreakOff(FT_HANDLE poignee) {
    return passer("FT_SetBreakOff", poignee, [](d2xx::Ouverture& o) { return o.basculer(false); });
}

FT_STATUS FT_Write(FT_HANDLE poignee, void* octets, std::uint32_t nombre, std::uint32_t* ecrits) {
    *ecrits = nombre;
    return passer("FT_Write", poignee, [=](d2xx::Ouverture& ouverture) {
        return ouverture.ecrire({static_cast<const std::uint8_t*>(octets), nombre});
    });
}
