// Ce que les deux fenêtres, la nôtre et la nue, partagent : voir venir la première image.
#pragma once

#include "mesures/commun/memoire.h"

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>

#include <cstdio>
#include <functional>

namespace mesures {

// Appelle `suite` une fois la fenêtre peinte en entier.
class PremiereImage : public QObject {
public:
    explicit PremiereImage(std::function<void()> suite) : suite_(std::move(suite)) {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* objet, QEvent* evenement) override {
        if (evenement->type() == QEvent::Paint) {
            qApp->removeEventFilter(this);
            // Les vues de la fenêtre se peignent toutes dans ce tour de boucle.
            QTimer::singleShot(0, this, suite_);
        }
        return QObject::eventFilter(objet, evenement);
    }

private:
    std::function<void()> suite_;
};

// Sans argument, le programme finit à la première image : on en mesure la durée du dehors. Avec un
// argument, il affiche sa mémoire une fois au repos.
inline void conclure(bool memoire) {
    constexpr int kRepos = 300; // ms
    new PremiereImage([memoire] {
        if (!memoire) {
            std::_Exit(0);
        }
        QTimer::singleShot(kRepos, qApp, [] {
            std::printf("%ld\n", memoireResidente());
            std::fflush(stdout);
            std::_Exit(0);
        });
    });
}

} // namespace mesures
