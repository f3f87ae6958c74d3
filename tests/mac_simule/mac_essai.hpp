// Un Mac simulé dont les essais lancent les programmes, sans que rien ne passe par leur propre
// environnement.
#pragma once

#include "commun/mac.hpp"
#include "support/systeme.hpp"

using essai::forme;

inline std::string cite(const std::string& mot) {
    return "'" + mot + "'";
}

inline bool contient(const std::string& texte, const std::string& morceau) {
    return texte.find(morceau) != std::string::npos;
}

// Le statut d'un programme arrêté par un signal est le numéro du signal.
inline Systeme::Resultat lancer(const std::string& commande) {
    return Systeme::commande("/bin/sh", {"-c", "exec </dev/null; " + commande});
}

class MacEssai : public essai::Mac {
public:
    explicit MacEssai(const std::string& scenario) : Mac(scenario) { ::unsetenv("LUMIVIA_MAC"); }

    std::filesystem::path racine() const { return reel(""); }

    Systeme::Resultat outil(const std::string& commande) const {
        const auto fin = std::min(commande.find(' '), commande.size());
        return lancer(cite(reel(commande.substr(0, fin))) + commande.substr(fin));
    }

    std::string dit(const std::string& commande) const { return outil(commande).sortie; }

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
