#include "mac_simule/faits/faits.hpp"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <unistd.h>

namespace faits {

namespace fs = std::filesystem;

const Mac& Mac::duProcessus() {
    // Gardé jusqu'au bout : un fil d'arrière-plan peut s'en servir pendant que le processus finit.
    static const Mac& unique = *new Mac([] {
        const char* variable = std::getenv("LUMIVIA_MAC");
        // Sous un fichier qui n'est pas un dossier, rien n'existe.
        return std::string(variable == nullptr || *variable == '\0' ? "/dev/null" : variable);
    }());
    return unique;
}

std::string Mac::chemin(const std::string& fait) const {
    return racine_ + "/etat/" + fait;
}

bool Mac::present(const std::string& fait) const {
    std::error_code ignoree; // ce qui ne se regarde pas n'est pas là
    return fs::exists(chemin(fait), ignoree);
}

std::string Mac::texte(const std::string& fait) const {
    std::ifstream fichier(chemin(fait), std::ios::binary);
    return {std::istreambuf_iterator<char>(fichier), {}};
}

std::optional<std::string> Mac::lire(const std::string& fait) const {
    std::ifstream fichier(chemin(fait), std::ios::binary);
    if (!fichier) {
        return std::nullopt;
    }
    std::string ligne;
    std::getline(fichier, ligne);
    return ligne;
}

std::vector<std::string> Mac::noms(const std::string& dossier) const {
    std::vector<std::string> trouves;
    std::error_code ignoree; // dossier absent : aucun fait
    for (fs::directory_iterator element(chemin(dossier), ignoree), fin; element != fin;
         element.increment(ignoree)) {
        trouves.push_back(element->path().filename());
    }
    std::sort(trouves.begin(), trouves.end());
    return trouves;
}

bool Mac::ecrire(const std::string& fait, const std::string& texte) const {
    const std::string definitif = chemin(fait);
    const std::string provisoire = definitif + "." + std::to_string(::getpid());
    std::ofstream fichier(provisoire, std::ios::binary);
    fichier << texte;
    fichier.close();
    if (fichier && std::rename(provisoire.c_str(), definitif.c_str()) == 0) {
        return true;
    }
    std::remove(provisoire.c_str()); // resterait-il, personne ne lit un fait de ce nom
    return false;
}

} // namespace faits
