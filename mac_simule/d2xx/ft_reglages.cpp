#include "mac_simule/d2xx/appareil.hpp"
#include "mac_simule/d2xx/appels.hpp"

namespace {

// Change la ligne de la session et note l'appel.
template <class Modification>
FT_STATUS regler(const std::string& appel, FT_HANDLE poignee, const Modification& modifier) {
    return d2xx::noterAppel(appel,
                            d2xx::Appareil::unique().servir(poignee, [&](d2xx::Session& session) {
                                d2xx::Ligne ligne = session.ligne();
                                modifier(ligne);
                                return session.regler(ligne);
                            }));
}

} // namespace

FT_STATUS FT_ResetDevice(FT_HANDLE poignee) {
    return regler("FT_ResetDevice", poignee, [](d2xx::Ligne& ligne) { ligne = {}; });
}

FT_STATUS FT_SetBaudRate(FT_HANDLE poignee, std::uint32_t debit) {
    return regler("FT_SetBaudRate " + std::to_string(debit), poignee,
                  [=](d2xx::Ligne& ligne) { ligne.debit = debit; });
}

FT_STATUS FT_SetDataCharacteristics(FT_HANDLE poignee, std::uint8_t bits, std::uint8_t arrets,
                                    std::uint8_t parite) {
    return regler("FT_SetDataCharacteristics " + std::to_string(bits) + " " +
                      std::to_string(arrets) + " " + std::to_string(parite),
                  poignee, [=](d2xx::Ligne& ligne) {
                      ligne.bits = bits;
                      ligne.arrets = arrets;
                      ligne.parite = parite;
                  });
}

FT_STATUS FT_SetFlowControl(FT_HANDLE poignee, std::uint16_t flux, std::uint8_t xon,
                            std::uint8_t xoff) {
    return regler("FT_SetFlowControl " + std::to_string(flux) + " " + std::to_string(xon) + " " +
                      std::to_string(xoff),
                  poignee, [=](d2xx::Ligne& ligne) { ligne.flux = flux; });
}

// À l'ouverture, les tampons du modèle sont déjà vides : la purge n'est qu'un transfert.
FT_STATUS FT_Purge(FT_HANDLE poignee, std::uint32_t masque) {
    return regler("FT_Purge " + std::to_string(masque), poignee, [](d2xx::Ligne&) {});
}
