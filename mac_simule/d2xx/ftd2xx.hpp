// L'interface C de D2XX, sous les noms et les types publiés par FTDI : les dix fonctions que
// l'assistant cherche dans la bibliothèque de son paquet.
//
// Ce qui répond est le Mac simulé de la variable LUMIVIA_MAC. Un seul émetteur est ouvert à la
// fois. Les appels d'une même poignée passent l'un après l'autre, de n'importe quel fil.
//
// Statuts : ceux de `Statut`. Une fois l'émetteur débranché, tout appel sur sa poignée rend 4, même
// s'il est rebranché depuis : le pilote tient encore la poignée, mais le périphérique qu'elle
// désigne n'existe plus. Une fois rendue par FT_Close, ou remplacée par un nouveau FT_Open, elle
// vaut 1 comme toute valeur inconnue.
#pragma once

#include <cstdint>

namespace d2xx {

enum Statut : std::uint32_t {
    reussi = 0,
    poigneeInconnue = 1,
    introuvable = 2, // aucun émetteur à ce rang
    nonOuvert = 3,   // l'émetteur est déjà tenu
    erreurES = 4,
    parametreInvalide = 6,
    autreErreur = 18,
};

} // namespace d2xx

extern "C" {
using FT_HANDLE = void*;
using FT_STATUS = std::uint32_t;

FT_STATUS FT_Open(std::int32_t rang, FT_HANDLE* poignee);
FT_STATUS FT_Close(FT_HANDLE poignee);

FT_STATUS FT_ResetDevice(FT_HANDLE poignee);
FT_STATUS FT_SetBaudRate(FT_HANDLE poignee, std::uint32_t debit);
FT_STATUS FT_SetDataCharacteristics(FT_HANDLE poignee, std::uint8_t bits, std::uint8_t arrets,
                                    std::uint8_t parite);
FT_STATUS FT_SetFlowControl(FT_HANDLE poignee, std::uint16_t flux, std::uint8_t xon,
                            std::uint8_t xoff);
FT_STATUS FT_Purge(FT_HANDLE poignee, std::uint32_t masque);

FT_STATUS FT_SetBreakOn(FT_HANDLE poignee);
FT_STATUS FT_SetBreakOff(FT_HANDLE poignee);
FT_STATUS FT_Write(FT_HANDLE poignee, void* octets, std::uint32_t nombre, std::uint32_t* ecrits);
}
