// Une bibliothèque qui réussit sans rendre de poignée.
#include "mac_simule/d2xx/ftd2xx.hpp"

FT_STATUS FT_Open(std::int32_t /*rang*/, FT_HANDLE* /*poignee*/) {
    return d2xx::reussi;
}
