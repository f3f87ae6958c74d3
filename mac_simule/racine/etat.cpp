#include "mac_simule/racine/etat.hpp"

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <sstream>

namespace mac_simule {

namespace fs = std::filesystem;

std::string lireFichier(const fs::path& chemin) {
    std::ifstream flux(chemin, std::ios::binary);
    // Une lecture qui échoue en route (un processus qui vient de finir, sous /proc) rend ce qui a
    // été lu : l'opérateur retient l'exception que le tampon lance, un itérateur la laisserait
    // passer.
    std::ostringstream texte;
    texte << flux.rdbuf();
    return texte.str();
}

bool ecrireFichier(const fs::path& chemin, std::string_view contenu) {
    std::ofstream flux(chemin, std::ios::binary | std::ios::trunc);
    flux.write(contenu.data(), static_cast<std::streamsize>(contenu.size()));
    flux.close();
    return flux.good();
}

std::vector<fs::path> contenuDe(const fs::path& dossier) {
    std::vector<fs::path> chemins;
    std::error_code illisible; // ce qui a pu être lu reste bon à prendre
    for (fs::directory_iterator ici(dossier, illisible), fin; !illisible && ici != fin;
         ici.increment(illisible)) {
        chemins.push_back(ici->path());
    }
    std::sort(chemins.begin(), chemins.end());
    return chemins;
}

std::string lireFait(const fs::path& racine, const std::string& nom) {
    const std::string contenu = lireFichier(racine / "etat" / nom);
    return contenu.substr(0, contenu.find('\n'));
}

bool faitPresent(const fs::path& racine, const std::string& nom) {
    std::error_code ignoree; // un fait qui ne se lit pas n'est pas là
    return fs::exists(racine / "etat" / nom, ignoree);
}

std::string texteDemarrage(std::chrono::system_clock::time_point instant) {
    using namespace std::chrono;
    const auto secondes = time_point_cast<std::chrono::seconds>(instant);
    const std::time_t heure = system_clock::to_time_t(secondes);
    std::tm locale{};
    localtime_r(&heure, &locale);
    std::array<char, 32> date{};
    std::strftime(date.data(), date.size(), "%a %b %e %H:%M:%S %Y", &locale);
    const auto micro = duration_cast<microseconds>(instant - secondes).count();
    return "{ sec = " + std::to_string(heure) + ", usec = " + std::to_string(micro) + " } " +
           date.data();
}

} // namespace mac_simule
