// La bibliothèque D2XX chargée comme le programme la charge : par son chemin, fonction par
// fonction.
#pragma once

#include "mac_simule/d2xx/ftd2xx.hpp"
#include "mac_simule/d2xx/reception.hpp"

#include <array>
#include <cstdlib>
#include <dlfcn.h>
#include <string>
#include <unistd.h>

namespace essai {

class Bibliotheque {
public:
    template <class Fonction, class... Arguments>
    FT_STATUS appeler(const char* nom, Arguments... arguments) const {
        return reinterpret_cast<Fonction*>(::dlsym(lib_, nom))(arguments...);
    }

    // Rend le statut ; la poignée va dans `poignee`.
    FT_STATUS ouvrir(std::int32_t rang = 0) {
        return appeler<decltype(FT_Open)>("FT_Open", rang, &poignee);
    }

    FT_STATUS fermer() const { return appeler<decltype(FT_Close)>("FT_Close", poignee); }

    FT_STATUS debit(std::uint32_t d = 250000) const {
        return appeler<decltype(FT_SetBaudRate)>("FT_SetBaudRate", poignee, d);
    }

    FT_STATUS format(std::uint8_t arrets = 2) const {
        return appeler<decltype(FT_SetDataCharacteristics)>(
            "FT_SetDataCharacteristics", poignee, std::uint8_t{8}, arrets, std::uint8_t{0});
    }

    FT_STATUS flux() const {
        return appeler<decltype(FT_SetFlowControl)>("FT_SetFlowControl", poignee, std::uint16_t{0},
                                                    std::uint8_t{0}, std::uint8_t{0});
    }

    bool ouvrirPourDmx() {
        return ouvrir() == 0 && appeler<decltype(FT_ResetDevice)>("FT_ResetDevice", poignee) == 0 &&
               debit() == 0 && format() == 0 && flux() == 0 &&
               appeler<decltype(FT_Purge)>("FT_Purge", poignee, 3U) == 0;
    }

    // Une trame et son repos ; rend le premier statut qui n'est pas 0.
    FT_STATUS envoyer(std::uint8_t niveau, useconds_t repos = 30000) const {
        std::array<std::uint8_t, 513> trame{};
        trame.fill(niveau);
        trame[0] = 0;
        std::uint32_t ecrits = 0;
        FT_STATUS statut = appeler<decltype(FT_SetBreakOn)>("FT_SetBreakOn", poignee);
        ::usleep(200);
        statut =
            statut != 0 ? statut : appeler<decltype(FT_SetBreakOff)>("FT_SetBreakOff", poignee);
        void* octets = trame.data();
        statut = statut != 0
                     ? statut
                     : appeler<decltype(FT_Write)>("FT_Write", poignee, octets, 513U, &ecrits);
        ::usleep(repos);
        return statut == 0 && ecrits != 513 ? 99 : statut;
    }

    FT_HANDLE poignee = nullptr;

private:
    void* lib_ = ::dlopen(D2XX, RTLD_NOW);
};

inline d2xx::Reception reception() {
    return d2xx::lireReception(std::getenv("LUMIVIA_MAC")).value_or(d2xx::Reception{});
}

} // namespace essai
