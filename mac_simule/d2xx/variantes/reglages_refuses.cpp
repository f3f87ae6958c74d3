// Une bibliothèque dont aucun réglage ne réussit : la ligne reste comme la puce l'avait.
#include "mac_simule/d2xx/appels.hpp"

using d2xx::noterAppel;

FT_STATUS FT_ResetDevice(FT_HANDLE /*poignee*/) {
    return noterAppel("FT_ResetDevice", d2xx::erreurES);
}

FT_STATUS FT_SetBaudRate(FT_HANDLE /*poignee*/, std::uint32_t /*debit*/) {
    return noterAppel("FT_SetBaudRate", d2xx::erreurES);
}

FT_STATUS FT_SetDataCharacteristics(FT_HANDLE /*poignee*/, std::uint8_t /*bits*/,
                                    std::uint8_t /*arrets*/, std::uint8_t /*parite*/) {
    return noterAppel("FT_SetDataCharacteristics", d2xx::erreurES);
}

FT_STATUS FT_SetFlowControl(FT_HANDLE /*poignee*/, std::uint16_t /*flux*/, std::uint8_t /*xon*/,
                            std::uint8_t /*xoff*/) {
    return noterAppel("FT_SetFlowControl", d2xx::erreurES);
}

FT_STATUS FT_Purge(FT_HANDLE /*poignee*/, std::uint32_t /*masque*/) {
    return noterAppel("FT_Purge", d2xx::erreurES);
}
