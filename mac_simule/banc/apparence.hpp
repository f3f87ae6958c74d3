// Les couleurs et les polices du banc, claires ou sombres selon la palette de l'application.
#pragma once

#include <QtGui/QColor>
#include <QtGui/QFont>

class QLabel;
class QString;

namespace banc {

struct Couleurs {
    QColor carte;
    QColor bord;
    QColor texte;
    QColor discret;
    QColor accent;
    QColor repos; // interrupteur coupé
    QColor bon;
    QColor mauvais;
    QColor scene; // fond sur lequel le projecteur éclaire
};

// Style, police et palette de toute l'application. LUMIVIA_APPARENCE (clair, sombre) l'emporte sur
// le bureau.
void habiller();

const Couleurs& couleurs();

enum class Ton { titre, courant, discret };
QLabel* etiquette(Ton ton, const QString& texte = {});

} // namespace banc
