// Ce que la surface désigne sous Qt, pour les essais et les mesures. Fil principal.
#pragma once

#include <QtWidgets/QMainWindow>
#include <QtWidgets/QPushButton>

namespace robot {

// Celle qui se voit ; nul quand il n'y en a pas.
QMainWindow* fenetre();

// Celui que `presser` presserait ; nul quand il n'y en a pas.
QPushButton* bouton(const std::string& titre);

// Tourne la boucle jusqu'à ce qu'elle n'ait plus rien à faire : une mise en page en demande une
// autre, plus haut.
void traiter();

} // namespace robot
