#include "diagnostic/diagnostic.hpp"
#include "support/listes.hpp"

namespace {

std::string ouAucun(const std::vector<std::string>& elements) {
    return elements.empty() ? "aucun" : joindre(elements, ", ");
}

std::string etatDext(const Diagnostic& d) {
    if (!d.dextFTDIPresent) {
        return "absent";
    }
    return d.dextFTDIActif ? "activé" : "désactivé";
}

} // namespace

std::string Diagnostic::texteMacOS() const {
    return std::to_string(versionMacOS.majorVersion) + "." +
           std::to_string(versionMacOS.minorVersion) + "." +
           std::to_string(versionMacOS.patchVersion);
}

std::string Diagnostic::rapport() const {
    return "Mac : " + modele + ", " + (puceApple ? "puce Apple" : "Intel") + ", macOS " +
           texteMacOS() + "\nÉmetteur(s) FTDI 0403:6001 : " + ouAucun(emetteurs) +
           "\nD2xxHelper : fichier " + (d2xxHelperFichier ? "présent" : "absent") + ", chargé " +
           (d2xxHelperCharge ? "oui" : "non") +
           "\nAnciens pilotes FTDI : " + ouAucun(anciensKextsFTDI) +
           "\nPilote FTDI DriverKit : " + etatDext(*this);
}
