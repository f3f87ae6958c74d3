// L'image d'une page, pour la démonstration. Fil principal.
#pragma once

#include <QtGui/QPixmap>

class QWidget;

namespace plateforme {

class FenetreQt;

// La page telle qu'on la voit ; `alerte`, quand il y en a une, est posée par-dessus, en son milieu.
QPixmap imageDeLaFenetre(FenetreQt& fenetre, QWidget* alerte);

} // namespace plateforme
