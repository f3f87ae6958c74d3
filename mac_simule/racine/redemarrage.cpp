#include "mac_simule/racine/redemarrage.hpp"

#include "mac_simule/racine/etat.hpp"

#include <sstream>

namespace mac_simule {

namespace fs = std::filesystem;

std::string kextsApresRedemarrage(const std::string& lignes,
                                  const std::function<bool(const std::string&)>& existe) {
    std::string restent;
    std::istringstream flux(lignes);
    for (std::string ligne; std::getline(flux, ligne);) {
        const std::string chemin = ligne.substr(ligne.rfind('\t') + 1);
        const bool tierce = chemin.rfind("/Library/Extensions/", 0) == 0;
        if (!tierce || existe(chemin)) {
            restent += ligne + "\n";
        }
    }
    return restent;
}

std::string extensionsApresRedemarrage(const std::string& lignes) {
    static const std::string enArret = "[terminating for disable but still running]";
    std::string restent;
    std::istringstream flux(lignes);
    for (std::string ligne; std::getline(flux, ligne);) {
        if (ligne.find("[terminated waiting to uninstall on reboot]") != std::string::npos) {
            continue;
        }
        if (const auto ou = ligne.find(enArret); ou != std::string::npos) {
            // Désactivée, elle reste inscrite : seconde colonne cochée, la première vide.
            ligne.replace(ou, enArret.size(), "[activated disabled]");
            ligne = "\t*" + ligne.substr(ligne.find('\t', ligne.find('\t') + 1));
        }
        restent += ligne + "\n";
    }
    return restent;
}

bool passerAuDemarrageSuivant(const fs::path& racine) {
    const fs::path etat = racine / "etat";
    const auto existe = [&](const std::string& chemin) {
        std::error_code illisible; // ce qui ne se voit pas ne se charge pas
        return fs::exists(racine.string() + chemin, illisible);
    };
    const auto kexts = kextsApresRedemarrage(lireFichier(etat / "kexts_charges"), existe);
    const auto extensions = extensionsApresRedemarrage(lireFichier(etat / "extensions_systeme"));
    const auto demarrage = texteDemarrage(std::chrono::system_clock::now());
    const bool ecrit = ecrireFichier(etat / "kexts_charges", kexts) &&
                       ecrireFichier(etat / "extensions_systeme", extensions) &&
                       ecrireFichier(etat / "demarrage", demarrage + "\n");
    std::error_code absent; // ce qui n'y est pas n'est pas à ôter
    for (const char* nom : {"retraits_en_attente", "reglages_ouverts", "fenetres"}) {
        fs::remove_all(etat / nom, absent);
    }
    fs::create_directory(etat / "fenetres", absent);
    return fs::remove(etat / "redemarrage_demande", absent) && ecrit;
}

} // namespace mac_simule
