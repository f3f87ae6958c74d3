// Une bibliothèque dont FT_Write ne revient pas tant que le fait « ecriture_retenue » est là : un
// pilote qui attend un émetteur muet.
#include "mac_simule/d2xx/appareil.hpp"
#include "mac_simule/d2xx/appels.hpp"
#include "mac_simule/d2xx/etat.hpp"

#include <chrono>
#include <filesystem>
#include <thread>

namespace {

bool retenue() {
    std::error_code illisible; // un fait qui ne se lit pas n'est pas là
    return std::filesystem::exists(d2xx::racineDuMac() + "/etat/ecriture_retenue", illisible);
}

} // namespace

FT_STATUS FT_Write(FT_HANDLE poignee, void* octets, std::uint32_t nombre, std::uint32_t* ecrits) {
    while (retenue()) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    *ecrits = nombre;
    return d2xx::noterAppel(
        "FT_Write", d2xx::Appareil::unique().servir(poignee, [=](d2xx::Session& session) {
            return session.ecrire({static_cast<const std::uint8_t*>(octets), nombre});
        }));
}
