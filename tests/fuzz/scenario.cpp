// Les fichiers de scénario : la phrase de la première erreur, ou un Mac.
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
    const auto commente = mac_simule::lireScenario(std::string(octets) + "\n# rien\n\n");
    exiger(std::get<mac_simule::Scenario>(commente).frappe ==
               std::get<mac_simule::Scenario>(lu).frappe,
           "un commentaire ne change rien");
}
