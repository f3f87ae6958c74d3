#include "mac_simule/d2xx/guetteur.hpp"

#include <array>
#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <system_error>

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/inotify.h>
#include <unistd.h>

namespace d2xx {

Guetteur::Guetteur(std::string fichier)
    : fichier_(std::move(fichier)), changements_(::inotify_init1(IN_CLOEXEC | IN_NONBLOCK)),
      arret_(::eventfd(0, EFD_CLOEXEC)) {
    if (arret_ < 0) {
        const int erreur = errno;
        ::close(changements_);
        throw std::system_error(erreur, std::generic_category(), "eventfd");
    }
    const std::string dossier = std::filesystem::path(fichier_).parent_path();
    const std::uint32_t departs = IN_DELETE | IN_MOVED_FROM | IN_DELETE_SELF | IN_MOVE_SELF;
    if (changements_ >= 0 && ::inotify_add_watch(changements_, dossier.c_str(), departs) < 0) {
        ::close(changements_);
        changements_ = -1;
    }
    fil_ = std::thread([this] { guetter(); });
}

Guetteur::~Guetteur() {
    // Une écriture de huit octets dans un compteur neuf ne peut pas échouer.
    ::eventfd_write(arret_, 1);
    fil_.join();
    ::close(arret_);
    if (changements_ >= 0) {
        ::close(changements_);
    }
}

void Guetteur::guetter() {
    // Sans notification (leur nombre est compté par utilisateur), vingt regards par seconde.
    const int delai = changements_ < 0 ? 50 : -1;
    std::array<pollfd, 2> sources{{{arret_, POLLIN, 0}, {changements_, POLLIN, 0}}};
    bool quitte = false;
    // Le fil ne finit que quand on l'arrête : fini de lui-même, il resterait à attendre.
    do {
        quitte = lireChangements() || quitte || ::access(fichier_.c_str(), F_OK) != 0;
        parti_.store(quitte, std::memory_order_relaxed);
        ::poll(sources.data(), sources.size(), delai);
    } while ((sources[0].revents & POLLIN) == 0);
}

// Vrai quand le fichier a quitté le dossier, même s'il y est revenu depuis.
bool Guetteur::lireChangements() {
    const std::string nom = std::filesystem::path(fichier_).filename();
    alignas(inotify_event) std::array<char, 4096> tampon{};
    bool quitte = false;
    ssize_t lus = 0;
    while ((lus = ::read(changements_, tampon.data(), tampon.size())) > 0) {
        for (std::size_t place = 0; place < static_cast<std::size_t>(lus);) {
            const auto* evenement =
                reinterpret_cast<const inotify_event*>(tampon.data() + place); // NOLINT
            quitte = quitte || evenement->len == 0 || nom == evenement->name;
            place += sizeof(inotify_event) + evenement->len;
        }
    }
    return quitte;
}

} // namespace d2xx
