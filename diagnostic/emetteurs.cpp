#include "diagnostic/diagnostic.hpp"
#include "plateforme/peripheriques_usb.hpp"

namespace {

// Toute puce FT232 de FTDI compte, quel que soit son vendeur.
constexpr std::uint16_t kFabricantFTDI = 0x0403;
constexpr std::uint16_t kProduitFT232 = 0x6001;

} // namespace

std::vector<std::string> Diagnostic::emetteursBranches() {
    std::vector<std::string> noms;
    for (const auto& numero : plateforme::numerosDeSerieUSB(kFabricantFTDI, kProduitFT232)) {
        noms.push_back(numero.value_or("sans numéro"));
    }
    return noms;
}
