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

    // Vrai quand le dossier courant d'un processus est dans la racine.
    bool habite() const {
        return lancer("ls -l /proc/[0-9]*/cwd | grep -F " + cite("-> " + racine().string())).code ==
               0;
    }
};
