// Une bibliothèque qui refuse d'ouvrir l'émetteur, et laisse pourtant quelque chose à la place de
// la poignée.
#include "mac_simule/d2xx/ftd2xx.hpp"

FT_STATUS FT_Open(std::int32_t /*rang*/, FT_HANDLE* poignee) {
    *poignee = poignee;
    return d2xx::autreErreur;
}
