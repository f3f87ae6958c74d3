// banc RACINE : la fenêtre « Mac simulé ». Statut : 0 à la fermeture, 2 quand on l'appelle mal.
#include "mac_simule/banc/apparence.hpp"
#include "mac_simule/banc/banc.hpp"

#include <QtCore/QSocketNotifier>
#include <QtWidgets/QApplication>

#include <csignal>
#include <cstdio>
#include <sys/signalfd.h>

namespace {

// Un signal d'arrêt ferme le banc comme une personne le ferait : il arrive dans la boucle, par un
// descripteur.
void ecouterLaFin(QApplication& application) {
    sigset_t signaux;
    sigemptyset(&signaux);
    for (const int signal : {SIGHUP, SIGINT, SIGTERM}) {
        sigaddset(&signaux, signal);
    }
    ::sigprocmask(SIG_BLOCK, &signaux, nullptr);
    auto* ecoute = new QSocketNotifier(::signalfd(-1, &signaux, SFD_CLOEXEC), QSocketNotifier::Read,
                                       &application);
    QObject::connect(ecoute, &QSocketNotifier::activated, &application, &QApplication::quit);
}

} // namespace

int main(int nombre, char** arguments) {
    if (nombre != 2 || !faits::Mac(arguments[1]).existe()) {
        std::fputs("usage : banc RACINE (le dossier d'un Mac simulé)\n", stderr);
        return 2;
    }
    QApplication application(nombre, arguments);
    ecouterLaFin(application);
    banc::habiller();
    banc::Banc fenetre(arguments[1]);
    fenetre.show();
    return QApplication::exec();
}
