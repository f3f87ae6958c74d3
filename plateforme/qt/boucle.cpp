#include "plateforme/boucle.hpp"

#include "plateforme/qt/alerte_ouverte.hpp"
#include "plateforme/qt/application_qt.hpp"
#include "plateforme/qt/file_principale.hpp"
#include "plateforme/simule/horloge.hpp"

#include <QtCore/QSocketNotifier>
#include <QtCore/QTimer>

#include <chrono>
#include <sys/eventfd.h>
#include <thread>
#include <unistd.h>

namespace plateforme {
namespace {

constexpr std::chrono::milliseconds kRonde{50};

} // namespace

void surveiller(int descripteur, const std::function<void()>& relever) {
    QObject* application = QCoreApplication::instance();
    if (descripteur >= 0) {
        auto* sonnette = new QSocketNotifier(descripteur, QSocketNotifier::Read, application);
        QObject::connect(sonnette, &QSocketNotifier::activated, application, relever);
    } else {
        auto* ronde = new QTimer(application);
        QObject::connect(ronde, &QTimer::timeout, application, relever);
        ronde->start(kRonde);
    }
}

FilePrincipale& FilePrincipale::partagee() {
    static FilePrincipale& file = *new FilePrincipale;
    return file;
}

FilePrincipale::FilePrincipale() : reveil_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

void FilePrincipale::deposer(std::function<void()> tache) {
    const std::lock_guard<std::mutex> garde(verrou_);
    taches_.push_back(std::move(tache));
    // Un compteur plein réveille déjà la boucle ; sans compteur, elle fait sa ronde.
    static_cast<void>(::eventfd_write(reveil_, 1));
}

void FilePrincipale::brancher() {
    if (!branchee_) {
        branchee_ = true;
        surveiller(reveil_, [this] { vider(); });
    }
}

void FilePrincipale::vider() {
    eventfd_t compte = 0;
    static_cast<void>(::eventfd_read(reveil_, &compte));
    // Une tâche qui ouvre une alerte fait tourner la boucle : la suivante attend la fin de
    // celle-ci.
    if (enCours_) {
        return;
    }
    enCours_ = true;
    for (;;) {
        std::function<void()> tache;
        {
            const std::lock_guard<std::mutex> garde(verrou_);
            if (taches_.empty()) {
                break;
            }
            tache = std::move(taches_.front());
            taches_.pop_front();
        }
        tache();
    }
    enCours_ = false;
}

void executerEnArrierePlan(std::function<void()> tache) {
    try {
        std::thread(tache).detach();
    } catch (const std::system_error&) {
        // Plus de fil disponible : mieux vaut une fenêtre figée un instant qu'une page sans fin.
        tache();
    }
}

void executerSurPrincipal(std::function<void()> tache) {
    FilePrincipale::partagee().deposer(std::move(tache));
}

double secondes() {
    const auto maintenant = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double>(maintenant).count() * simule::vitesseHorloge();
}

struct ActiviteUrgente::Natif {};

// Rien ne ralentit une application cachée sous Linux.
ActiviteUrgente::ActiviteUrgente(const char*) {}

ActiviteUrgente::~ActiviteUrgente() = default;

struct Minuteur::Natif {
    QTimer* horloge = new QTimer;

    ~Natif() {
        horloge->stop();
        horloge->deleteLater(); // il est peut-être en train de battre
    }
};

Minuteur::Minuteur(double intervalleEnSecondes, std::function<void()> battement)
    : natif_(std::make_unique<Natif>()) {
    applicationQt();
    QTimer* horloge = natif_->horloge;
    horloge->setTimerType(Qt::PreciseTimer);
    QObject::connect(horloge, &QTimer::timeout, horloge, [battement = std::move(battement)] {
        if (!alerteOuverte()) {
            battement();
        }
    });
    horloge->start(static_cast<int>(intervalleEnSecondes * 1000 / simule::vitesseHorloge()));
}

Minuteur::~Minuteur() = default;

} // namespace plateforme
