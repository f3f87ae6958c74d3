// Les faits d'un Mac simulé : les petits fichiers de RACINE/etat.
//
// Ces fonctions ne lèvent aucune exception. Un fait absent se lit comme un texte vide ; l'écriture
// dit si elle a réussi. Elles se partagent entre `creer_mac`, le Terminal et le lanceur.
#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace mac_simule {

std::string lireFichier(const std::filesystem::path& chemin);
bool ecrireFichier(const std::filesystem::path& chemin, std::string_view contenu);

// Les chemins qu'un dossier contient, dans l'ordre ; aucun quand il ne se lit pas.
std::vector<std::filesystem::path> contenuDe(const std::filesystem::path& dossier);

// La première ligne de RACINE/etat/NOM.
std::string lireFait(const std::filesystem::path& racine, const std::string& nom);
bool faitPresent(const std::filesystem::path& racine, const std::string& nom);

// Ce que `kern.boottime` répond d'un Mac démarré à cet instant, en heure locale.
std::string texteDemarrage(std::chrono::system_clock::time_point instant);

} // namespace mac_simule
