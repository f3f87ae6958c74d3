// Ce que le Mac simulé répond aux questions posées au système : version, périphériques,
// préférences, redémarrage.
#include "mac_simule/faits/faits.hpp"
#include "plateforme/fichiers.hpp"
#include "plateforme/identite.hpp"
#include "plateforme/peripheriques_usb.hpp"
#include "plateforme/preferences.hpp"
#include "plateforme/systeme_exploitation.hpp"

#include <sstream>

namespace plateforme {
namespace {

constexpr std::size_t kLimitePreference = 64 * 1024;
constexpr std::size_t kLimitePeripherique = 64 * 1024;

std::string cheminPreference(const std::string& cle) {
    return dossierPersonnel() + "/Library/Preferences/" + kIdentifiantPaquet + "/" + cle;
}

} // namespace

VersionMacOS versionSysteme() {
    VersionMacOS version;
    const std::string texte = faits::Mac::duProcessus().lire("version").value_or("");
    std::istringstream nombres(texte);
    char point = '.';
    nombres >> version.majorVersion >> point >> version.minorVersion >> point >>
        version.patchVersion;
    return version;
}

void demanderRedemarrage() {
    // loginwindow est tenu par le lanceur, qui surveille ce fichier ; s'il ne s'écrit pas, la
    // demande est perdue comme un évènement refusé l'est sur un Mac.
    static_cast<void>(
        ecrireAtomiquement(faits::Mac::duProcessus().chemin("redemarrage_demande"), "oui\n"));
}

std::vector<std::optional<std::string>> numerosDeSerieUSB(std::uint16_t fabricant,
                                                          std::uint16_t produit) {
    const faits::Mac& mac = faits::Mac::duProcessus();
    std::vector<std::optional<std::string>> numeros;
    for (const std::string& nom : mac.noms("usb")) {
        const std::string texte =
            lireFichier(mac.chemin("usb/" + nom), kLimitePeripherique).value_or("");
        faits::Peripherique lu = faits::lirePeripherique(texte);
        if (lu.fabricant == fabricant && lu.produit == produit) {
            numeros.push_back(std::move(lu.serie));
        }
    }
    return numeros;
}

std::optional<std::string> lirePreference(const std::string& cle) {
    return lireFichier(cheminPreference(cle), kLimitePreference);
}

void ecrirePreference(const std::string& cle, const std::string& valeur) {
    const std::string chemin = cheminPreference(cle);
    // Comme sur un Mac, une préférence qui ne s'écrit pas est perdue sans bruit.
    if (!creerDossiers(chemin.substr(0, chemin.rfind('/')))) {
        static_cast<void>(ecrireAtomiquement(chemin, valeur));
    }
}

void retirerPreference(const std::string& cle) {
    // Comme sur un Mac, un refus est sans bruit.
    static_cast<void>(supprimer(cheminPreference(cle)));
}

} // namespace plateforme
