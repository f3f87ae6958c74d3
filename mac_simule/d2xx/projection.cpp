#include "mac_simule/d2xx/projection.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <unistd.h>

namespace d2xx {

std::unique_ptr<Projection> Projection::ouvrir(const std::string& chemin, int drapeaux,
                                               std::size_t taille, Preparation preparer) {
    const int fichier = ::open(chemin.c_str(), drapeaux | O_CLOEXEC, 0644);
    if (fichier < 0) {
        return nullptr;
    }
    void* debut = MAP_FAILED;
    if (preparer(fichier)) {
        const int acces = (drapeaux & O_ACCMODE) == O_RDONLY ? PROT_READ : PROT_READ | PROT_WRITE;
        debut = ::mmap(nullptr, taille, acces, MAP_SHARED, fichier, 0);
    }
    if (debut == MAP_FAILED) {
        ::close(fichier);
        return nullptr;
    }
    return std::unique_ptr<Projection>(new Projection(fichier, debut, taille));
}

Projection::~Projection() {
    ::munmap(debut_, taille_);
    // Rendu ici : un enfant qui n'a pas encore changé de programme garderait le verrou.
    ::flock(fichier_, LOCK_UN);
    ::close(fichier_);
}

} // namespace d2xx
