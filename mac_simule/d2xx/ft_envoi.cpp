#include "mac_simule/d2xx/appareil.hpp"
#include "mac_simule/d2xx/appels.hpp"

FT_STATUS FT_SetBreakOn(FT_HANDLE poignee) {
    return d2xx::Appareil::unique().servir(
        poignee, [](d2xx::Session& session) { return session.commencerRupture(); });
}

FT_STATUS FT_SetBreakOff(FT_HANDLE poignee) {
    return d2xx::Appareil::unique().servir(
        poignee, [](d2xx::Session& session) { return session.finirRupture(); });
}

FT_STATUS FT_Close(FT_HANDLE poignee) {
    return d2xx::noterAppel("FT_Close", d2xx::Appareil::unique().fermer(poignee));
}
