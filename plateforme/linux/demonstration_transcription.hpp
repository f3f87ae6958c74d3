// Ce qu'une personne rencontre, en texte : de quoi comparer deux passages sans regarder d'images.
// Fil principal.
#pragma once

#include <QtCore/QString>

class QWidget;

namespace plateforme {

// Chaque vue visible sous `racine`, de haut en bas puis de gauche à droite, une par paragraphe :
// son genre, sa place arrondie (relative à `racine`), ses réglages et ses textes. La mise en page
// est faite.
QString transcrire(const QWidget& racine);

} // namespace plateforme
