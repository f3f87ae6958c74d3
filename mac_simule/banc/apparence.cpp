#include "mac_simule/banc/apparence.hpp"

#include <QtGui/QPalette>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>

namespace banc {

namespace {

struct Apparence {
    Couleurs couleurs;
    QColor fenetre;
};

// Texte discret : contraste d'au moins 4,5 sur la carte et sur la fenêtre.
const Apparence& claire() {
    static const Apparence apparence{.couleurs = {.carte = "#ffffff",
                                                  .bord = "#dcdce0",
                                                  .texte = "#1d1d1f",
                                                  .discret = "#62626a",
                                                  .accent = "#0a66d8",
                                                  .repos = "#8e8e96",
                                                  .bon = "#1d7a3c",
                                                  .mauvais = "#b3341f",
                                                  .scene = "#16171c"},
                                     .fenetre = "#f1f1f3"};
    return apparence;
}

const Apparence& sombre() {
    static const Apparence apparence{.couleurs = {.carte = "#303033",
                                                  .bord = "#454549",
                                                  .texte = "#f4f4f5",
                                                  .discret = "#b0b0b6",
                                                  .accent = "#3d8bf2",
                                                  .repos = "#83838b",
                                                  .bon = "#56c67c",
                                                  .mauvais = "#ff8a75",
                                                  .scene = "#101114"},
                                     .fenetre = "#242426"};
    return apparence;
}

bool estSombre(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < 128;
}

} // namespace

const Couleurs& couleurs() {
    return (estSombre(QApplication::palette()) ? sombre() : claire()).couleurs;
}

void habiller() {
    const QString voulue = qEnvironmentVariable("LUMIVIA_APPARENCE");
    const bool enSombre =
        voulue.isEmpty() ? estSombre(QApplication::palette()) : voulue == "sombre";
    const Apparence& apparence = enSombre ? sombre() : claire();
    const Couleurs& teintes = apparence.couleurs;
    QApplication::setStyle("Fusion");
    QPalette palette(teintes.carte, apparence.fenetre);
    palette.setColor(QPalette::Base, teintes.carte);
    palette.setColor(QPalette::Highlight, teintes.accent);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, teintes.texte);
        palette.setColor(QPalette::Disabled, role, teintes.discret);
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
        QPalette palette = label->palette();
        palette.setColor(QPalette::WindowText, couleurs().discret);
        label->setPalette(palette);
        police.setPixelSize(12);
    }
    label->setFont(police);
    return label;
}

} // namespace banc
