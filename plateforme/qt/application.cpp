#include "plateforme/application.hpp"

#include "plateforme/qt/apparence.hpp"
#include "plateforme/qt/application_qt.hpp"
#include "plateforme/qt/composition.hpp"
#include "plateforme/qt/fenetre_qt.hpp"
#include "plateforme/qt/file_principale.hpp"
#include "plateforme/qt/style.hpp"

#include <QtCore/QTimer>
#include <QtGui/QClipboard>
#include <QtWidgets/QMenuBar>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <sys/eventfd.h>

namespace plateforme {
namespace {

struct Reglages {
    DelegueApplication delegue;
    std::vector<Menu> menus;
};

Reglages& reglages() {
    static Reglages& uniques = *new Reglages;
    return uniques;
}

int sonnetteFin = -1;
volatile std::sig_atomic_t finDemandee = 0;

// Le redémarrage du Mac simulé termine l'assistant par SIGTERM.
void surSignalDeFin(int) {
    const int avant = errno; // sans sonnette, l'écriture échoue : le code interrompu n'en sait rien
    finDemandee = 1;
    static_cast<void>(::eventfd_write(sonnetteFin, 1));
    errno = avant;
}

void ecouterLaFin() {
    sonnetteFin = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    surveiller(sonnetteFin, [] {
        if (finDemandee != 0) {
            terminerApplication();
        }
    });

    struct sigaction action {};

    action.sa_handler = surSignalDeFin;
    ::sigaction(SIGTERM, &action, nullptr);
}

void declencher(ActionMenu action) {
    if (action == ActionMenu::terminer) {
        terminerApplication();
    } else {
        copierSelection();
    }
}

QAction* creerAction(const ArticleMenu& article, QObject* parent) {
    auto* action = new QAction(texteQt(article.titre), parent);
    action->setShortcut(QKeySequence(Qt::CTRL | Qt::Key(std::toupper(article.touche))));
    QObject::connect(action, &QAction::triggered,
                     [voulue = article.action] { declencher(voulue); });
    return action;
}

} // namespace

void copierSelection() {
    if (const auto* etiquette = qobject_cast<QLabel*>(QApplication::focusWidget());
        etiquette != nullptr && etiquette->hasSelectedText()) {
        QGuiApplication::clipboard()->setText(texteACopier(etiquette->selectedText()));
    }
}

QApplication& applicationQt() {
    static QApplication& application = *[] {
        static int nombre = 1;
        static char nom[] = "Assistant Lumivia";
        static char* arguments[] = {nom, nullptr};
        QApplication::setApplicationName(QString::fromLatin1(nom));
        QApplication::setStyle(new StyleAssistant);
        auto* creee = new QApplication(nombre, arguments);
        creee->installEventFilter(QApplication::style());
        // Fermer la fenêtre passe par le délégué, comme sur un Mac.
        QApplication::setQuitOnLastWindowClosed(false);
        QApplication::setPalette(paletteAssistant(QGuiApplication::palette()));
        QApplication::setFont(police(13, false));
        FilePrincipale::partagee().brancher();
        return creee;
    }();
    return application;
}

void definirDelegue(const DelegueApplication& delegue) {
    reglages().delegue = delegue;
}

void adopterPolitiqueOrdinaire() {}

void executerApplication() {
    QApplication& application = applicationQt();
    ecouterLaFin();
    QObject::connect(&application, &QApplication::lastWindowClosed, [] {
        if (reglages().delegue.terminerApresDerniereFenetre()) {
            terminerApplication();
        }
    });
    QTimer::singleShot(0, &application, [] { reglages().delegue.lancementTermine(); });
    QApplication::exec();
}

void installerMenu(const std::vector<Menu>& menus) {
    reglages().menus = menus;
}

QMenuBar* creerBarreDeMenus(QWidget* parent) {
    auto* barre = new QMenuBar(parent);
    barre->setFont(police(13, false));
    for (const Menu& menu : reglages().menus) {
        // Sur un Mac, le système donne au premier menu le nom de l'application.
        QMenu* deroulant = barre->addMenu(menu.titre.empty() ? QApplication::applicationName()
                                                             : texteQt(menu.titre));
        for (const ArticleMenu& article : menu.articles) {
            deroulant->addAction(creerAction(article, deroulant));
        }
    }
    return barre;
}

void donnerLesRaccourcis(QWidget& fenetre) {
    for (const Menu& menu : reglages().menus) {
        for (const ArticleMenu& article : menu.articles) {
            fenetre.addAction(creerAction(article, &fenetre));
        }
    }
}

void activerApplication() {
    for (QWidget* fenetre : QApplication::topLevelWidgets()) {
        if (fenetre->isVisible()) {
            fenetre->raise();
            fenetre->activateWindow();
        }
    }
}

void terminerApplication() {
    // Pas quit(), qui ferme les fenêtres : quitter par un bouton ne ferme pas la session DMX.
    QCoreApplication::exit(EXIT_SUCCESS);
}

} // namespace plateforme
