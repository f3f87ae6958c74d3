#include "mac_simule/banc/banc.hpp"

#include "mac_simule/banc/panneau_emetteur.hpp"
#include "mac_simule/banc/panneau_mac.hpp"
#include "mac_simule/banc/panneau_projecteur.hpp"
#include "mac_simule/banc/panneau_reglages.hpp"

#include <QtCore/QSaveFile>
#include <QtCore/QTimer>
#include <QtGui/QPixmap>
#include <QtWidgets/QVBoxLayout>

#include <chrono>

namespace banc {

namespace {
const QString demande = "demonstration/portrait_demande";
} // namespace

Banc::Banc(const QString& dossier)
    : racine_(dossier), projecteur_(new PanneauProjecteur(racine_)),
      panneaux_{projecteur_, new PanneauEmetteur(racine_), new PanneauReglages(racine_),
                new PanneauMac(racine_)} {
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
    if (!racine_.existe()) {
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
    const QString chemin = racine_.lire(demande).trimmed();
    if (chemin.isEmpty()) {
        return;
    }
    relireTout();
    QSaveFile image(chemin);
    if (!image.open(QSaveFile::WriteOnly) || !grab().save(&image, "PNG") || !image.commit()) {
        qWarning("L'image du banc n'a pas pu être écrite dans « %s ».", qUtf8Printable(chemin));
    }
    // Retirée même sans image : celui qui attend verra qu'elle manque.
    racine_.retirer(demande);
}

} // namespace banc
