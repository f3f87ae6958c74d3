// Ce que le Mac simulé répond aux questions posées au système : version, périphériques,
// préférences, redémarrage.
#include "plateforme/fichiers.hpp"
#include "plateforme/identite.hpp"
#include "plateforme/linux/mac_simule.hpp"
#include "plateforme/peripheriques_usb.hpp"
#include "plateforme/preferences.hpp"
#include "plateforme/systeme_exploitation.hpp"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <sstream>

namespace plateforme {
namespace {

constexpr std::size_t kLimitePreference = 64 * 1024;

struct Peripherique {
    unsigned long fabricant = 0;
    unsigned long produit = 0;
    std::optional<std::string> serie;
};

Peripherique lirePeripherique(const std::filesystem::path& chemin) {
    Peripherique lu;
    std::istringstream lignes(lireFichier(chemin.string(), kLimitePreference).value_or(""));
    for (std::string ligne; std::getline(lignes, ligne);) {
        const std::size_t blanc = std::min(ligne.find(' '), ligne.size());
        const std::string cle = ligne.substr(0, blanc);
        const std::string valeur = ligne.substr(std::min(blanc + 1, ligne.size()));
        if (cle == "fabricant") {
            lu.fabricant = std::strtoul(valeur.c_str(), nullptr, 0);
        } else if (cle == "produit") {
            lu.produit = std::strtoul(valeur.c_str(), nullptr, 0);
        } else if (cle == "serie") {
            lu.serie = valeur;
        }
    }
    return lu;
}

std::string cheminPreference(const std::string& cle) {
    return dossierPersonnel() + "/Library/Preferences/" + kIdentifiantPaquet + "/" + cle;
}

} // namespace

VersionMacOS versionSysteme() {
    VersionMacOS version;
    const std::string texte = mac_simule::etat("version").value_or("");
    std::istringstream nombres(texte);
    char point = '.';
    nombres >> version.majorVersion >> point >> version.minorVersion >> point >>
        version.patchVersion;
    return version;
}

void demanderRedemarrage() {
    // loginwindow est tenu par le lanceur, qui surveille ce fichier ; s'il ne s'écrit pas, la
    // demande est perdue comme un évènement refusé l'est sur un Mac.
    mac_simule::ecrireEtat("redemarrage_demande", "oui");
}

std::vector<std::optional<std::string>> numerosDeSerieUSB(std::uint16_t fabricant,
                                                          std::uint16_t produit) {
    std::vector<std::filesystem::path> fichiers;
    std::error_code erreur;
    for (std::filesystem::directory_iterator element(mac_simule::cheminEtat("usb"), erreur), fin;
         !erreur && element != fin; element.increment(erreur)) {
        fichiers.push_back(element->path());
    }
    std::sort(fichiers.begin(), fichiers.end());
    std::vector<std::optional<std::string>> numeros;
    for (const std::filesystem::path& fichier : fichiers) {
        Peripherique lu = lirePeripherique(fichier);
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
    supprimer(cheminPreference(cle));
}

} // namespace plateforme
