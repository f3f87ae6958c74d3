#include "mesures/pages/parcours.hpp"

#include "mesures/commun/duree.h"

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QThread>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>

#include <cstdio>

namespace mesures {
namespace {

constexpr long long kPatience = 10'000'000'000; // ns sans que le bouton voulu paraisse

// Le titre de la page est la première étiquette de la fenêtre.
QString titreDeLaPage() {
    for (const QWidget* fenetre : QApplication::topLevelWidgets()) {
        if (const auto* titre = fenetre->findChild<QLabel*>(); titre && fenetre->isVisible()) {
            return titre->text();
        }
    }
    return {};
}

// La boucle de l'application, jusqu'à ce qu'elle n'ait plus rien à faire.
void epuiserLaBoucle() {
    bool actif = true;
    while (actif) {
        actif = QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

} // namespace

QPushButton* Parcours::trouver(const QString& titre) const {
    for (QWidget* vue : QApplication::allWidgets()) {
        auto* bouton = qobject_cast<QPushButton*>(vue);
        if (bouton != nullptr && bouton->isVisible() && bouton->text() == titre) {
            return bouton;
        }
    }
    return nullptr;
}

void Parcours::travailler(QPushButton* bouton) {
    const long long debut = nanosecondes();
    if (bouton != nullptr) {
        bouton->click();
    }
    epuiserLaBoucle();
    const long long duree = nanosecondes() - debut;
    if (const QString titre = titreDeLaPage(); titre != page_) {
        page_ = titre;
        changements_.push_back({duree, titre.toStdString()});
    }
}

bool Parcours::presser(const std::string& titre) {
    const long long limite = nanosecondes() + kPatience;
    travailler(nullptr);
    QPushButton* bouton = nullptr;
    while ((bouton = trouver(QString::fromStdString(titre))) == nullptr) {
        if (nanosecondes() > limite) {
            std::fprintf(stderr, "Le bouton « %s » ne vient pas.\n", titre.c_str());
            return false;
        }
        QThread::msleep(1);
        travailler(nullptr);
    }
    travailler(bouton);
    return true;
}

} // namespace mesures
