#include "mac_simule/d2xx/appareil.hpp"
#include "mac_simule/d2xx/appels.hpp"

FT_STATUS FT_Write(FT_HANDLE poignee, void* octets, std::uint32_t nombre, std::uint32_t* ecrits) {
    if (octets == nullptr || ecrits == nullptr) {
        return d2xx::parametreInvalide;
    }
    const FT_STATUS statut = d2xx::Appareil::unique().servir(poignee, [=](d2xx::Session& session) {
        return session.ecrire({static_cast<const std::uint8_t*>(octets), nombre});
    });
    *ecrits = statut == d2xx::reussi ? nombre : 0;
    return statut;
}
