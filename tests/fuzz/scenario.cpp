// Les fichiers de scénario : une phrase, ou un Mac entier.
#include "mac_simule/racine/scenario.hpp"

#include "fuzz/entree.hpp"

#include <algorithm>

void essai::eprouver(std::string_view octets) {
    const auto lu = mac_simule::lireScenario(octets);
    if (const auto* phrase = std::get_if<std::string>(&lu)) {
        const auto lignes = 1 + std::count(octets.begin(), octets.end(), '\n');
        exiger(phrase->compare(0, 6, "ligne ") == 0, "l'erreur dit sa ligne");
        const int numero = std::atoi(phrase->c_str() + 6);
        exiger(numero >= 1 && numero <= lignes, "la ligne est du fichier");
        const auto suite = mac_simule::lireScenario(std::string(octets) + "\nfin Bienvenue");
        exiger(std::get<std::string>(suite) == *phrase, "la première erreur est la bonne");
        return;
    }
    const auto& s = std::get<mac_simule::Scenario>(lu);
    exiger(mac_simule::nomUtilisateurValide(s.utilisateur), "l'utilisateur peut être un dossier");
    for (const std::string& kext : s.kexts) {
        exiger(kext.find('/') == std::string::npos && kext[0] != '.', "l'extension est un dossier");
    }
    for (const auto& p : s.peripheriques) {
        exiger(std::strtoul(p.fabricant.c_str(), nullptr, 16) <= 0xFFFF &&
                   (p.serie.empty() || p.serieNombre.empty()),
               "un périphérique a au plus un numéro");
    }
    const auto commente = mac_simule::lireScenario(std::string(octets) + "\n# rien\n\n");
    exiger(std::get<mac_simule::Scenario>(commente).frappe == s.frappe,
           "un commentaire ne change rien");
}
