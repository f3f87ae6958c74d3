// Une bibliothèque qui réussit sans rendre de poignée.
#include "mac_simule/d2xx/appels.hpp"

FT_STATUS FT_Open(std::int32_t rang, FT_HANDLE* /*poignee*/) {
    return d2xx::noterAppel("FT_Open " + std::to_string(rang), d2xx::reussi);
}
