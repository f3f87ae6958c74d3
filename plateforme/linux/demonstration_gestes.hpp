// Ce que la personne simulée fait sur chaque page : une suite de gestes. Fonctions sans fenêtre.
#pragma once

#include <string>
#include <vector>

namespace plateforme {

struct Geste {
    enum class Genre {
        image,               // prendre l'image de la page ; `valeur` complète son nom
        clic,                // cliquer sur le bouton de ce titre ; vide : celui par défaut
        attendre,            // laisser passer ce nombre de millisecondes
        portrait,            // demander au banc une image de lui-même
        desactiverExtension, // décocher l'extension de FTDI dans les Réglages
        guide,               // lire la consigne de chaque article du menu local
        choisir,             // choisir cet article du menu local
        finir,               // garder le rapport et le journal, et terminer
    };
    Genre genre;
    std::string valeur;
};

// `derniere` : la page est celle où le scénario mène. `clicVoulu` : le bouton que le scénario fait
// presser à la place de l'ordinaire ; vide : l'ordinaire.
std::vector<Geste> gestesDeLaPage(const std::string& titre, bool derniere,
                                  const std::string& clicVoulu);

} // namespace plateforme
