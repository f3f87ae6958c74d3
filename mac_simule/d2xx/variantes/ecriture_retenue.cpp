// Une bibliothèque dont FT_Write ne revient pas tant que le fait « ecriture_retenue » est là : un
// pilote qui attend un émetteur muet.
#include "mac_simule/d2xx/appareil.hpp"
#include "mac_simule/faits/faits.hpp"

FT_STATUS FT_Write(FT_HANDLE poignee, void* octets, std::uint32_t nombre, std::uint32_t* ecrits) {
    while (faits::Mac::duProcessus().present("ecriture_retenue")) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    *ecrits = nombre;
    return d2xx::noterAppel(
        "FT_Write", d2xx::Appareil::unique().servir(poignee, [=](d2xx::Ouverture& ouverture) {
            return ouverture.ecrire({static_cast<const std::uint8_t*>(octets), nombre});
        }));
}
