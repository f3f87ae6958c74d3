// Conduit la vraie fenêtre de l'assistant, hors écran, comme le ferait quelqu'un.
#pragma once

#include "app/delegue.hpp"
#include "commun/journal.hpp"
#include "commun/mac.hpp"
#include "mac_simule/robot/regard.hpp"
#include "mac_simule/robot/regard_qt.hpp"

#include <QtCore/QTimer>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLayout>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QPushButton>

namespace essai {

using robot::traiter;

inline bool attendreQue(const std::function<bool()>& predicat) {
    const bool vu = attendre(predicat, traiter);
    traiter(); // ce qui vient d'être posé sur la page se montre
    return vu;
}

class Conduite {
public:
    explicit Conduite(const std::string& scenario = "pret") : mac(scenario) {
        namespace fs = std::filesystem;
        fs::copy(PAQUET, mac.reel("/Applications/Assistant Lumivia.app"),
                 fs::copy_options::recursive);
    }

    void demarrer() {
        delegue_.applicationDidFinishLaunching();
        QApplication::setActiveWindow(&fenetre()); // qui a le clavier
        traiter();
    }

    static QMainWindow& fenetre() { return *robot::fenetre(); }

    // Les textes de l'alerte ouverte, sinon ceux de la page, qui commencent par son titre.
    static std::vector<std::string> textes() { return robot::textes("étiquette"); }

    static QPushButton& bouton(const std::string& titreVoulu) {
        if (QPushButton* voulu = robot::bouton(titreVoulu)) {
            return *voulu;
        }
        throw std::runtime_error("pas de « " + titreVoulu + " » sur la page " + robot::titre());
    }

    void cliquer(const std::string& titreVoulu) const {
        bouton(titreVoulu).click();
        traiter();
    }

    // Une touche, par où le système les donne ; `repetee` : tenue.
    static void touche(int code, Qt::KeyboardModifiers avec = Qt::NoModifier,
                       bool repetee = false) {
        for (const bool appui : {true, false}) {
            QTest::simulateEvent(QGuiApplication::focusWindow(), appui, code, avec, {}, repetee);
        }
        traiter();
    }

    // Des clics rapprochés au milieu de ce bouton, par où le système les donne ; la page peut
    // changer dessous. Une seconde les sépare des précédents.
    void cliquerVite(const std::string& titreVoulu, int fois) const {
        static int instant = 0; // ms
        const QWidget& cible = bouton(titreVoulu);
        const QPoint ou = cible.mapTo(&fenetre(), cible.rect().center());
        instant += 1000;
        for (int i = 0; i < fois; ++i) {
            for (const auto genre : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
                const Qt::MouseButtons tenus =
                    genre == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
                qt_handleMouseEvent(fenetre().windowHandle(), ou, fenetre().mapToGlobal(ou), tenus,
                                    Qt::LeftButton, genre, Qt::NoModifier, instant += 50);
                traiter();
            }
        }
    }

    bool attendrePage(const std::string& titreVoulu) const {
        return attendreQue([&] { return robot::titre() == titreVoulu; });
    }

    void allerAuResultat() {
        demarrer();
        cliquer("Analyser mon Mac");
        ASSERT_TRUE(attendrePage("Résultat de l'analyse"));
    }

    void passerLeResultat() {
        allerAuResultat();
        cliquer("Continuer");
    }

    // Ferme chaque alerte qui s'ouvre, en gardant ses textes.
    void fermerLesAlertes() {
        auto* gardien = new QTimer(qApp);
        QObject::connect(gardien, &QTimer::timeout, [this] {
            if (robot::alerteOuverte()) {
                alertes.emplace_back();
                for (const std::string& texte : textes()) {
                    alertes.back() += texte + "\n";
                }
                bouton("").click();
            }
        });
        gardien->start(5);
    }

    Mac mac;
    std::vector<std::string> alertes;

private:
    // Comme dans le programme, rien de l'assistant n'est détruit avant la fin du processus.
    static inline Delegue& delegue_ = *new Delegue;
};

} // namespace essai
