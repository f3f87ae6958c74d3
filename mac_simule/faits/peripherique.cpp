#include "mac_simule/faits/faits.hpp"

#include <algorithm>
#include <cstdlib>
#include <sstream>

namespace faits {

Peripherique lirePeripherique(const std::string& texte) {
    const auto identifiant = [](const std::string& valeur) {
        return static_cast<std::uint32_t>(std::strtoul(valeur.c_str(), nullptr, 16));
    };
    Peripherique lu;
    std::istringstream lignes(texte);
    for (std::string cle, valeur; lignes >> cle && std::getline(lignes, valeur);) {
        if (cle == "fabricant") {
            lu.fabricant = identifiant(valeur);
        } else if (cle == "produit") {
            lu.produit = identifiant(valeur);
        } else if (cle == "serie") {
            lu.serie = valeur.substr(std::min<std::size_t>(1, valeur.size())); // après l'espace
        }
    }
    return lu;
}

} // namespace faits
