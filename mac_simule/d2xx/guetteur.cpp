#include "mac_simule/d2xx/guetteur.hpp"

#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

namespace d2xx {

Guetteur::Guetteur(std::string fichier)
    : fichier_(std::move(fichier)), avis_(::inotify_init1(IN_CLOEXEC)),
      depart_(::inotify_add_watch(avis_, fichier_.c_str(), IN_DELETE_SELF | IN_MOVE_SELF)),
      fil_([this] { guetter(); }) {}

Guetteur::~Guetteur() {
    fini_ = true;
    // Retirer la surveillance est aussi un avis : il réveille le fil. Sans elle, il regarde
    // l'heure.
    ::inotify_rm_watch(avis_, depart_);
    fil_.join();
    ::close(avis_);
}

void Guetteur::guetter() {
    pollfd avis{avis_, POLLIN, 0};
    // Le fil ne finit que quand on l'arrête : fini de lui-même, il resterait à attendre.
    while (!fini_) {
        // Sans avis (leur nombre est compté par utilisateur), vingt regards par seconde. Un dossier
        // qui s'en va tout entier n'en donne pas : un regard par seconde suffit.
        ::poll(&avis, 1, depart_ < 0 || parti() ? 50 : 1000);
        if (!fini_ && (avis.revents != 0 || ::access(fichier_.c_str(), F_OK) != 0)) {
            parti_.store(true, std::memory_order_relaxed);
            avis.fd = -1; // ce qui s'y dit encore ne le réveille plus
        }
    }
}

} // namespace d2xx
