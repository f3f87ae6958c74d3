#include "mac_simule/d2xx/depot.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <unistd.h>

namespace d2xx {

std::unique_ptr<Depot> Depot::prendre(const std::string& racine) {
    const int fichier =
        ::open(cheminDeReception(racine).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
    if (fichier < 0) {
        return nullptr;
    }
    void* projection = MAP_FAILED;
    if (::flock(fichier, LOCK_EX | LOCK_NB) == 0 &&
        ::ftruncate(fichier, sizeof(ReceptionPartagee)) == 0) {
        projection = ::mmap(nullptr, sizeof(ReceptionPartagee), PROT_READ | PROT_WRITE,
                            MAP_SHARED | MAP_POPULATE, fichier, 0);
    }
    if (projection == MAP_FAILED) {
        ::close(fichier);
        return nullptr;
    }
    return std::unique_ptr<Depot>(new Depot(fichier, static_cast<ReceptionPartagee*>(projection)));
}

Depot::~Depot() {
    ::munmap(partagee_, sizeof(ReceptionPartagee));
    // Rendu ici : un enfant qui n'a pas encore changé de programme garderait le verrou.
    ::flock(fichier_, LOCK_UN);
    ::close(fichier_);
}

void Depot::deposer(Reception bilan, bool ouverte) {
    static const std::int32_t processus = ::getpid();
    bilan.ouverte = ouverte ? 1 : 0;
    bilan.processus = processus;
    partagee_->publier(bilan);
}

} // namespace d2xx
