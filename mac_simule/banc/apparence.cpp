#include "mac_simule/banc/apparence.hpp"

#include <QtGui/QPalette>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>

#include <array>

namespace banc {

namespace {

// La teinte claire, puis la sombre, dans l'ordre de l'énumération. Texte discret : contraste d'au
// moins 4,5 sur la carte et sur la fenêtre.
constexpr std::array<std::array<const char*, 2>, 10> kTeintes{{
    {"#f1f1f3", "#242426"}, // fenêtre
    {"#ffffff", "#303033"}, // carte
    {"#dcdce0", "#454549"}, // bord
    {"#1d1d1f", "#f4f4f5"}, // texte
    {"#62626a", "#b0b0b6"}, // discret
    {"#0a66d8", "#3d8bf2"}, // accent
    {"#8e8e96", "#83838b"}, // repos : interrupteur coupé
    {"#1d7a3c", "#56c67c"}, // bon
    {"#b3341f", "#ff8a75"}, // mauvais
    {"#16171c", "#101114"}, // scène : le fond sur lequel le projecteur éclaire
}};

bool estSombre() {
    return QApplication::palette().color(QPalette::Window).lightness() < 128;
}

} // namespace

QColor couleur(Teinte teinte) {
    return {kTeintes[static_cast<std::size_t>(teinte)][estSombre() ? 1 : 0]};
}

void habiller() {
    QApplication::setStyle("Fusion");
    if (const QString voulue = qEnvironmentVariable("LUMIVIA_APPARENCE"); !voulue.isEmpty()) {
        // Cette palette dit de quel côté sont les teintes ; la leur vient aussitôt après.
        QApplication::setPalette(voulue == "sombre" ? Qt::black : Qt::white);
    }
    QPalette palette(couleur(Teinte::carte), couleur(Teinte::fenetre));
    palette.setColor(QPalette::Base, couleur(Teinte::carte));
    palette.setColor(QPalette::Highlight, couleur(Teinte::accent));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, couleur(Teinte::texte));
        palette.setColor(QPalette::Disabled, role, couleur(Teinte::discret));
    }
    QApplication::setPalette(palette);
    QFont police;
    police.setFamilies({"Inter", "Noto Color Emoji"});
    police.setPixelSize(13);
    QApplication::setFont(police);
}

QLabel* etiquette(Ton ton, const QString& texte) {
    auto* label = new QLabel(texte);
    label->setWordWrap(true);
    QFont police = label->font();
    if (ton == Ton::titre) {
        police.setPixelSize(15);
        police.setWeight(QFont::DemiBold);
    } else if (ton == Ton::discret) {
        colorer(label, couleur(Teinte::discret));
        police.setPixelSize(12);
    }
    label->setFont(police);
    return label;
}

void colorer(QLabel* label, const QColor& couleur) {
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, couleur);
    label->setPalette(palette);
}

} // namespace banc
