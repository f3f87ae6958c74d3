// Les couleurs et les polices du banc, claires ou sombres selon la palette de l'application.
#pragma once

#include <QtGui/QColor>

class QLabel;
class QString;

namespace banc {

enum class Teinte { fenetre, carte, bord, texte, discret, accent, repos, bon, mauvais, scene };
QColor couleur(Teinte teinte);

// Style, police et palette de toute l'application. LUMIVIA_APPARENCE (clair, sombre) l'emporte sur
// le bureau.
void habiller();

enum class Ton { titre, courant, discret };
QLabel* etiquette(Ton ton, const QString& texte = {});
void colorer(QLabel* label, const QColor& couleur);

} // namespace banc
