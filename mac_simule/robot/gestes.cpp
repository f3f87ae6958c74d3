#include "mac_simule/robot/gestes.hpp"

#include <sstream>
#include <vector>

namespace robot {

Table lireGestes(const std::string& lignes) {
    Table table;
    std::istringstream texte(lignes);
    for (std::string ligne; std::getline(texte, ligne);) {
        std::istringstream champs(ligne);
        std::string champ;
        std::getline(champs, champ, '|');
        auto& gestes = table.emplace(champ, std::deque<std::string>())->second;
        while (std::getline(champs, champ, '|')) {
            gestes.push_back(champ);
        }
    }
    return table;
}

std::deque<std::string> prendreGestes(Table& table, const std::string& titre, bool derniere) {
    const std::vector<std::string> noms{"fin " + titre, "fin *", titre, "*"};
    for (std::size_t rang = derniere ? 0 : 2; rang < noms.size(); ++rang) {
        if (auto lignes = table.equal_range(noms[rang]); lignes.first != lignes.second) {
            std::deque<std::string> gestes = lignes.first->second;
            if (std::next(lignes.first) != lignes.second) {
                table.erase(lignes.first);
            }
            return gestes;
        }
    }
    return {};
}

} // namespace robot
