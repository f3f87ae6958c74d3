#include "mac_simule/d2xx/branchement.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace d2xx {

namespace {

// Nul quand le fichier n'est pas là.
ino_t numeroDe(const std::string& fichier) {
    struct stat lu {};

    return ::stat(fichier.c_str(), &lu) == 0 ? lu.st_ino : 0;
}

} // namespace

Branchement::Branchement(std::string fichier)
    : fichier_(std::move(fichier)), tenu_(::open(fichier_.c_str(), O_RDONLY | O_CLOEXEC)),
      numero_(numeroDe(fichier_)) {}

Branchement::~Branchement() {
    ::close(tenu_);
}

bool Branchement::rompu() {
    rompu_ = rompu_ || numeroDe(fichier_) != numero_;
    return rompu_;
}

} // namespace d2xx
