// Les couleurs de l'assistant sous Linux, claires ou sombres comme le bureau. Fil principal.
#pragma once

#include <QtGui/QColor>
#include <QtGui/QPalette>

#include <string>

namespace plateforme {

// La palette porte la couleur du texte secondaire dans ce rôle, que nos vues n'utilisent pas
// autrement.
inline constexpr QPalette::ColorRole kRoleTexteSecondaire = QPalette::LinkVisited;

struct CouleursBouton {
    QColor fond;
    QColor bord;
    QColor texte;
    QColor anneau;
};

CouleursBouton couleursBouton(bool parDefaut, bool enfonce);

// Palette claire ou sombre, selon le bureau (ou LUMIVIA_APPARENCE=claire|sombre).
QPalette paletteAssistant(const QPalette& bureau);

} // namespace plateforme
