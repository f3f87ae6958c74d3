// Un Mac simulé dont les essais lancent les programmes, sans que rien ne passe par leur propre
// environnement.
#pragma once

#include "commun/mac.hpp"

#include <array>
#include <cstdio>
#include <sys/wait.h>

using essai::attendre;
using essai::contenu;

struct Fini {
    std::string sortie; // les deux flux
    int code;
};

inline std::string cite(const std::string& mot) {
    return "'" + mot + "'";
}

inline bool contient(const std::string& texte, const std::string& morceau) {
    return texte.find(morceau) != std::string::npos;
}

inline Fini lancer(const std::string& commande) {
    Fini fini{};
    FILE* flux = popen(("{ " + commande + "\n} 2>&1 </dev/null").c_str(), "r");
    std::array<char, 4096> tampon{};
    while (const auto lu = std::fread(tampon.data(), 1, tampon.size(), flux)) {
        fini.sortie.append(tampon.data(), lu);
    }
    const int etat = pclose(flux);
    fini.code = WIFEXITED(etat) ? WEXITSTATUS(etat) : -WTERMSIG(etat);
    return fini;
}

inline std::string forme(const std::string& nom) {
    return contenu(FORMES + nom);
}

class MacEssai : public essai::Mac {
public:
    explicit MacEssai(const std::string& scenario) : Mac(scenario) { ::unsetenv("LUMIVIA_MAC"); }

    std::filesystem::path racine() const { return reel(""); }

    Fini outil(const std::string& commande) const {
        const auto fin = std::min(commande.find(' '), commande.size());
        return lancer(cite(reel(commande.substr(0, fin))) + commande.substr(fin));
    }

    std::string fait(const std::string& nom) const { return lire("/etat/" + nom); }

    // Vrai quand le dossier courant d'un processus est dans la racine.
    bool habite() const {
        std::error_code partis; // un processus peut finir pendant la lecture
        for (const auto& entree : std::filesystem::directory_iterator("/proc", partis)) {
            const auto ou = std::filesystem::read_symlink(entree.path() / "cwd", partis).string();
            if (ou.rfind(racine().string(), 0) == 0) {
                return true;
            }
        }
        return false;
    }
};
