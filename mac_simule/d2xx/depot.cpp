#include "mac_simule/d2xx/depot.hpp"

#include <fstream>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace d2xx {

namespace {

struct Fiche {
    Nanosecondes debut = 0;
    Reception bilan;
    Nanosecondes fin = 0;
};

static_assert(sizeof(Fiche) == 56, "la forme que le banc lit");

std::string chemin(const std::string& racine) {
    return racine + "/etat/reception";
}

} // namespace

std::optional<Depot> Depot::prendre(const std::string& racine) {
    const int fichier = ::open(chemin(racine).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
    if (fichier < 0) {
        return std::nullopt;
    }
    if (::flock(fichier, LOCK_EX | LOCK_NB) != 0) {
        ::close(fichier);
        return std::nullopt;
    }
    return Depot(fichier);
}

Depot::~Depot() {
    if (fichier_ >= 0) {
        // Rendu ici : un enfant qui n'a pas encore changé de programme garderait le verrou.
        ::flock(fichier_, LOCK_UN);
        ::close(fichier_);
    }
}

void Depot::deposer(const Reception& bilan) const {
    const Nanosecondes instant = maintenant();
    const Fiche fiche{instant, bilan, instant};
    // Un refus du disque ne change rien à la ligne : le banc garde ce qu'il a lu.
    (void)::pwrite(fichier_, &fiche, sizeof(fiche), 0);
}

// Une fiche bornée des deux mêmes instants, que la lecture suivante confirme, est entière. Le
// fichier est rouvert à chaque lecture : une racine peut être refaite sous les yeux du lecteur.
std::optional<Reception> lireReception(const std::string& racine) {
    std::string precedente;
    for (int essai = 0; essai < 100; ++essai) {
        std::string lue(sizeof(Fiche), '\0');
        if (!std::ifstream(chemin(racine), std::ios::binary).read(lue.data(), sizeof(Fiche))) {
            return std::nullopt;
        }
        Fiche fiche;
        lue.copy(reinterpret_cast<char*>(&fiche), sizeof(fiche));
        if (lue == precedente && fiche.debut == fiche.fin) {
            return fiche.bilan;
        }
        precedente = lue;
    }
    return std::nullopt;
}

} // namespace d2xx
