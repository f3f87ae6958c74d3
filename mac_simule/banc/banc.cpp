#include "mac_simule/banc/banc.hpp"

#include "mac_simule/banc/panneaux.hpp"

#include <QtCore/QTimer>

namespace banc {

Banc::Banc(const std::string& racine)
    : mac_(racine), projecteur_(new PanneauProjecteur(mac_)),
      panneaux_{projecteur_, new PanneauPorts(mac_), new PanneauReglages(mac_),
                new PanneauMac(mac_)} {
    using namespace std::chrono_literals;
    setWindowTitle("Mac simulé");
    setFixedWidth(440);
    setFocusPolicy(Qt::ClickFocus); // aucun interrupteur n'a le clavier avant qu'on l'y mène
    setFocus();
    // La fenêtre principale a pour les lecteurs d'écran le rôle et le nom d'une fenêtre.
    auto* contenu = new QWidget;
    auto* colonne = new QVBoxLayout(contenu);
    colonne->setContentsMargins(16, 16, 16, 16);
    colonne->setSpacing(12);
    for (Panneau* panneau : panneaux_) {
        colonne->addWidget(panneau);
    }
    colonne->addStretch();
    setCentralWidget(contenu);
    const auto battre = [this](std::chrono::milliseconds pas, void (Banc::*geste)()) {
        auto* minuteur = new QTimer(this);
        connect(minuteur, &QTimer::timeout, this, geste);
        minuteur->start(pas);
    };
    battre(40ms, &Banc::suivre);
    battre(250ms, &Banc::relireTout);
    relireTout();
}

void Banc::suivre() {
    projecteur_->relire();
    repondreAuPortrait();
}

void Banc::relireTout() {
    if (!mac_.existe()) {
        close();
        return;
    }
    for (Panneau* panneau : panneaux_) {
        panneau->relire();
    }
    // Les phrases passent à la ligne : la hauteur suit ce qu'elles disent.
    setFixedHeight(centralWidget()->layout()->totalHeightForWidth(width()));
}

void Banc::repondreAuPortrait() {
    const std::string demande = "demonstration/portrait_demande";
    const QString chemin = QString::fromStdString(mac_.texte(demande)).trimmed();
    if (chemin.isEmpty()) {
        return;
    }
    relireTout();
    if (!grab().save(chemin, "PNG")) {
        qWarning("L'image du banc n'a pas pu être écrite dans « %s ».", qUtf8Printable(chemin));
    }
    // Retirée même sans image : celui qui attend verra qu'elle manque.
    static_cast<void>(mac_.retirer(demande));
}

} // namespace banc
