// Conduit la vraie fenêtre de l'assistant, hors écran, comme le ferait quelqu'un.
#pragma once

#include "app/delegue.hpp"
#include "commun/journal.hpp"
#include "commun/mac.hpp"
#include "plateforme/linux/application_qt.hpp"
#include "plateforme/linux/fenetre_qt.hpp"

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QTimer>
#include <QtGui/QClipboard>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialog>

namespace essai {

// Tout ce qui attend, et ce qui en découle : une mise en page en demande une autre, plus haut.
inline void traiter() {
    while (QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents)) {
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

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
        traiter();
    }

    plateforme::FenetreQt& fenetre() const {
        for (QWidget* vue : QApplication::topLevelWidgets()) {
            if (auto* trouvee = dynamic_cast<plateforme::FenetreQt*>(vue)) {
                return *trouvee;
            }
        }
        throw std::runtime_error("l'assistant n'a pas de fenêtre");
    }

    std::vector<std::string> textes() const {
        std::vector<std::string> lus;
        for (const QLabel* etiquette : fenetre().contenu()->findChildren<QLabel*>()) {
            // Une étiquette d'émojis porte du texte enrichi : son nom accessible est le texte nu.
            lus.push_back(etiquette->accessibleName().toStdString());
        }
        return lus;
    }

    std::string titre() const { return textes().front(); }

    QList<QPushButton*> boutons() const {
        auto visibles = fenetre().contenu()->findChildren<QPushButton*>();
        visibles.removeIf([](const QPushButton* bouton) { return bouton->isHidden(); });
        return visibles;
    }

    std::string parDefaut() const {
        for (const QPushButton* bouton : boutons()) {
            if (bouton->isDefault()) {
                return bouton->text().toStdString();
            }
        }
        return {};
    }

    QPushButton& bouton(const std::string& titreVoulu) const {
        for (QPushButton* bouton : boutons()) {
            if (bouton->text().toStdString() == titreVoulu) {
                return *bouton;
            }
        }
        throw std::runtime_error("pas de « " + titreVoulu + " » sur la page " + titre());
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
        return attendreQue([&] { return titre() == titreVoulu; });
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
        QObject::connect(&gardien_, &QTimer::timeout, [this] {
            if (auto* alerte = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
                alertes.emplace_back();
                for (const QLabel* etiquette : alerte->findChildren<QLabel*>()) {
                    alertes.back() += etiquette->text().toStdString() + "\n";
                }
                alerte->findChild<QPushButton*>()->click();
            }
        });
        gardien_.start(5);
    }

    Mac mac;
    std::vector<std::string> alertes;

private:
    // Comme dans le programme, rien de l'assistant n'est détruit avant la fin du processus.
    static inline Delegue& delegue_ = *new Delegue;
    QTimer& gardien_ = *new QTimer(&plateforme::applicationQt());
};

} // namespace essai
