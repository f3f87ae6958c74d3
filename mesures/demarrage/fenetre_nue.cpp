// Référence : une fenêtre écrite droit au but avec la même boîte à outils, les mêmes étiquettes,
// les mêmes polices, les mêmes boutons, et un émoji (« sans-emoji » l'ôte).
#include "mesures/demarrage/premiere_image.hpp"

#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QPushButton>

#include <string_view>

namespace {

QFont police(int taille, bool gras) {
    QFont fonte;
    fonte.setFamilies({QStringLiteral("Inter"), QStringLiteral("Noto Color Emoji")});
    fonte.setPixelSize(taille);
    fonte.setBold(gras);
    return fonte;
}

QLabel* etiquette(const char* texte, int taille, bool gras) {
    auto* nouvelle = new QLabel(QString::fromUtf8(texte));
    nouvelle->setFont(police(taille, gras));
    nouvelle->setWordWrap(taille == 14);
    nouvelle->setTextInteractionFlags(taille == 14 ? Qt::TextSelectableByMouse
                                                   : Qt::NoTextInteraction);
    return nouvelle;
}

QPushButton* bouton(const char* titre, int taille) {
    auto* nouveau = new QPushButton(QString::fromUtf8(titre));
    nouveau->setFont(police(taille, false));
    return nouveau;
}

void poserMenus(QMenuBar& barre) {
    barre.setFont(police(13, false));
    barre.addMenu("Assistant Lumivia")
        ->addAction("Quitter l'Assistant Lumivia")
        ->setShortcut(QKeySequence("Ctrl+Q"));
    barre.addMenu("Édition")->addAction("Copier")->setShortcut(QKeySequence("Ctrl+C"));
}

void poserBoutons(QVBoxLayout& colonne) {
    auto* boutons = new QHBoxLayout;
    boutons->addStretch();
    boutons->addWidget(bouton("Quitter", 13));
    QPushButton* analyser = bouton("Analyser mon Mac", 13);
    analyser->setDefault(true);
    boutons->addWidget(analyser);
    colonne.addLayout(boutons);
    auto* barre = new QHBoxLayout;
    barre->addWidget(bouton("Copier le rapport pour le support", 11));
    barre->addStretch();
    barre->addWidget(etiquette("Version 1.0.0", 11, false));
    colonne.addLayout(barre);
}

} // namespace

int main(int nombre, char** arguments) {
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication application(nombre, arguments);
    const bool sansEmoji = application.arguments().contains("sans-emoji");
    const bool memoire = application.arguments().contains("memoire");
    QWidget fenetre;
    fenetre.setWindowTitle("Assistant Lumivia — Voltaris");
    fenetre.setFixedSize(760, 620);
    auto* colonne = new QVBoxLayout(&fenetre);
    colonne->setContentsMargins(36, 28, 36, 18);
    auto* menus = new QMenuBar(&fenetre);
    poserMenus(*menus);
    colonne->setMenuBar(menus);
    colonne->addWidget(etiquette("Bienvenue", 22, true));
    colonne->addWidget(etiquette(
        "Cet assistant prépare votre Mac pour l'émetteur DMX Voltaris (entrée USB « Open DMX »)."
        "\n\nIl vérifie votre Mac, retire si besoin les anciens pilotes qui ne sont plus utiles, "
        "puis vous aide à vérifier que votre projecteur reçoit bien le signal.\n\nAvant de "
        "commencer :\n  1.  Branchez l'émetteur sur un port USB du Mac.\n  2.  Fermez votre "
        "logiciel lumière (Millumin, QLC+, Lightkey…).",
        14, false));
    if (!sansEmoji) {
        colonne->addWidget(etiquette("✅", 14, false));
    }
    colonne->addStretch();
    poserBoutons(*colonne);
    mesures::conclure(memoire);
    fenetre.show();
    return QApplication::exec();
}
