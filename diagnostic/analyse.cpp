#include "diagnostic/diagnostic.hpp"
#include "diagnostic/interpretation.hpp"
#include "support/systeme.hpp"
#include "support/utf8.hpp"

namespace {

std::string sysctl(const std::string& nom) {
    return Systeme::commande("/usr/sbin/sysctl", {"-n", nom}).sortie;
}

std::string listageDesExtensionsDuNoyau(bool macOS11ouPlus) {
    return macOS11ouPlus ? Systeme::commande("/usr/bin/kmutil", {"inspect"}).sortie
                         : Systeme::commande("/usr/sbin/kextstat").sortie;
}

} // namespace

Diagnostic Diagnostic::analyser() {
    Diagnostic d;
    d.puceApple = estPuceApple(sysctl("hw.optional.arm64"));
    d.modele = rogner(sysctl("hw.model"));
    d.emetteurs = emetteursBranches();
    d.d2xxHelperFichier = Systeme::existe(cheminD2xxHelper);
    for (const char* chemin : anciensKexts) {
        if (Systeme::existe(chemin)) {
            d.anciensKextsFTDI.emplace_back(chemin);
        }
    }
    d.d2xxHelperCharge = nommeD2xxHelper(listageDesExtensionsDuNoyau(d.macOS11ouPlus()),
                                         d.versionMacOS.majorVersion);
    const EtatDext dext =
        lireEtatDext(Systeme::commande("/usr/bin/systemextensionsctl", {"list"}).sortie);
    d.dextFTDIPresent = dext.present;
    d.dextFTDIActif = dext.actif;
    return d;
}
