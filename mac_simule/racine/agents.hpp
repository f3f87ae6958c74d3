// Les agents de session, tels que launchd les trouve dans Users/<nom>/Library/LaunchAgents.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace mac_simule {

struct Agent {
    std::string etiquette;
    std::vector<std::string> programme; // chemin de Mac, puis arguments
    bool auChargement = false;          // RunAtLoad
};

// L'agent que décrit une liste de propriétés XML ; rien quand elle est mal formée, ou sans les
// trois propriétés attendues ou l'une d'elles d'un autre type. Les autres clés sont sautées.
std::optional<Agent> lireAgent(const std::string& xml);

// Les agents du dossier, dans l'ordre des noms de fichier ; un dossier absent n'en a pas. Un
// fichier qui ne se lit pas est dit sur la sortie d'erreur, comme launchd le dit à son journal.
std::vector<Agent> agentsDe(const std::filesystem::path& dossier);

} // namespace mac_simule
