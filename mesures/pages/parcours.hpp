// Conduit la vraie fenêtre par les titres de ses boutons, et chronomètre chaque changement de page.
#pragma once

#include <string>
#include <vector>

class QPushButton;

namespace mesures {

class Parcours {
public:
    // Presse le bouton de ce titre, dès qu'il est là. Faux quand il ne vient pas.
    bool presser(const std::string& titre);

    struct Changement {
        long long duree; // nanosecondes, de l'événement qui le demande à la fenêtre peinte
        std::string titre;
    };

    const std::vector<Changement>& changements() const { return changements_; }

    void oublier() { changements_.clear(); }

private:
    // Presse ce bouton, s'il y en a un, puis tourne la boucle.
    void travailler(QPushButton* bouton);

    std::string page_;
    std::vector<Changement> changements_;
};

} // namespace mesures
