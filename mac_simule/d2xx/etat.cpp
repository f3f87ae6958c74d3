#include "mac_simule/d2xx/etat.hpp"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace d2xx {

namespace {

// Les puces que la bibliothèque de FTDI reconnaît d'elle-même.
constexpr unsigned fabricantFtdi = 0x0403;
constexpr std::array<unsigned, 5> produitsFtdi{0x6001, 0x6010, 0x6011, 0x6014, 0x6015};

bool estFtdi(const std::filesystem::path& fichier) {
    std::ifstream lecture(fichier);
    unsigned fabricant = 0;
    unsigned produit = 0;
    std::string cle;
    std::string valeur;
    while (lecture >> cle && std::getline(lecture >> std::ws, valeur)) {
        if (cle == "fabricant") {
            fabricant = static_cast<unsigned>(std::strtoul(valeur.c_str(), nullptr, 16));
        } else if (cle == "produit") {
            produit = static_cast<unsigned>(std::strtoul(valeur.c_str(), nullptr, 16));
        }
    }
    return fabricant == fabricantFtdi &&
           std::ranges::find(produitsFtdi, produit) != produitsFtdi.end();
}

} // namespace

std::string racineDuMac() {
    const char* racine = std::getenv("LUMIVIA_MAC");
    return racine == nullptr ? std::string() : std::string(racine);
}

std::vector<std::string> emetteursBranches(const std::string& racine) {
    std::vector<std::string> emetteurs;
    std::error_code ignoree; // dossier absent : rien n'est branché
    for (std::filesystem::directory_iterator fichier(racine + "/etat/usb", ignoree), fin;
         fichier != fin; fichier.increment(ignoree)) {
        if (estFtdi(fichier->path())) {
            emetteurs.push_back(fichier->path().string());
        }
    }
    std::ranges::sort(emetteurs);
    return emetteurs;
}

bool emetteurOccupe(const std::string& racine) {
    std::error_code ignoree;
    return std::filesystem::exists(racine + "/etat/emetteur_occupe", ignoree);
}

Puce::Modele modeleDePuce(const std::string& racine) {
    std::ifstream lecture(racine + "/etat/puce_dmx");
    std::string nom;
    lecture >> nom;
    return nom == "realiste" ? Puce::Modele::realiste : Puce::Modele::immediate;
}

} // namespace d2xx
