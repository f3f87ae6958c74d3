#include "mac_simule/d2xx/ftd2xx.hpp"

#include "mac_simule/d2xx/appareil.hpp"

#include <exception>

using d2xx::Appareil;
using d2xx::Ligne;
using d2xx::noterAppel;
using d2xx::Ouverture;

namespace {

// Change la ligne de l'émetteur ouvert et note l'appel.
template <class Modification>
FT_STATUS regler(const std::string& appel, FT_HANDLE poignee, const Modification& modifier) {
    return noterAppel(appel, Appareil::unique().servir(poignee, [&](Ouverture& ouverture) {
        Ligne ligne = ouverture.ligne();
        modifier(ligne);
        return ouverture.regler(ligne);
    }));
}

FT_STATUS basculer(FT_HANDLE poignee, bool enBreak) {
    return Appareil::unique().servir(
        poignee, [=](Ouverture& ouverture) { return ouverture.basculer(enBreak); });
}

} // namespace

FT_STATUS FT_Open(std::int32_t rang, FT_HANDLE* poignee) {
    FT_STATUS statut = d2xx::parametreInvalide;
    if (poignee != nullptr) {
        try {
            statut = Appareil::unique().ouvrir(rang, *poignee);
        } catch (const std::exception&) {
            statut = d2xx::autreErreur; // plus de mémoire
        }
    }
    return noterAppel("FT_Open " + std::to_string(rang), statut);
}

FT_STATUS FT_Close(FT_HANDLE poignee) {
    return noterAppel("FT_Close", Appareil::unique().fermer(poignee));
}

FT_STATUS FT_ResetDevice(FT_HANDLE poignee) {
    return regler("FT_ResetDevice", poignee, [](Ligne& ligne) { ligne = {}; });
}

FT_STATUS FT_SetBaudRate(FT_HANDLE poignee, std::uint32_t debit) {
    return regler("FT_SetBaudRate " + std::to_string(debit), poignee,
                  [=](Ligne& ligne) { ligne.debit = debit; });
}

FT_STATUS FT_SetDataCharacteristics(FT_HANDLE poignee, std::uint8_t bits, std::uint8_t arrets,
                                    std::uint8_t parite) {
    return regler("FT_SetDataCharacteristics " + std::to_string(bits) + " " +
                      std::to_string(arrets) + " " + std::to_string(parite),
                  poignee, [=](Ligne& ligne) {
                      ligne.bits = bits;
                      ligne.arrets = arrets;
                      ligne.parite = parite;
                  });
}

FT_STATUS FT_SetFlowControl(FT_HANDLE poignee, std::uint16_t flux, std::uint8_t xon,
                            std::uint8_t xoff) {
    return regler("FT_SetFlowControl " + std::to_string(flux) + " " + std::to_string(xon) + " " +
                      std::to_string(xoff),
                  poignee, [=](Ligne& ligne) { ligne.flux = flux; });
}

// À l'ouverture, les tampons du modèle sont déjà vides : la purge n'est qu'un transfert.
FT_STATUS FT_Purge(FT_HANDLE poignee, std::uint32_t masque) {
    return regler("FT_Purge " + std::to_string(masque), poignee, [](Ligne&) {});
}

FT_STATUS FT_SetBreakOn(FT_HANDLE poignee) {
    return basculer(poignee, true);
}

FT_STATUS FT_SetBreakOff(FT_HANDLE poignee) {
    return basculer(poignee, false);
}

FT_STATUS FT_Write(FT_HANDLE poignee, void* octets, std::uint32_t nombre, std::uint32_t* ecrits) {
    if (octets == nullptr || ecrits == nullptr) {
        return d2xx::parametreInvalide;
    }
    const FT_STATUS statut = Appareil::unique().servir(poignee, [=](Ouverture& ouverture) {
        return ouverture.ecrire({static_cast<const std::uint8_t*>(octets), nombre});
    });
    *ecrits = statut == d2xx::reussi ? nombre : 0;
    return statut;
}
