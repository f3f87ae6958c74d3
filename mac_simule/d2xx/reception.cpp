#include "mac_simule/d2xx/reception.hpp"

#include <bit>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace d2xx {

// Chaque mot est rendu (release) puis acquis : un lecteur qui voit un mot de la nouvelle écriture
// voit aussi le numéro impair qui la précède, et recommence.
void ReceptionPartagee::publier(const Reception& reception) {
    const auto mots = std::bit_cast<Mots>(reception);
    const std::uint64_t sequence = sequence_.load(std::memory_order_relaxed) | 1;
    sequence_.store(sequence, std::memory_order_relaxed);
    for (std::size_t i = 0; i < mots.size(); ++i) {
        mots_[i].store(mots[i], std::memory_order_release);
    }
    sequence_.store(sequence + 1, std::memory_order_release);
    version_.store(marqueDeVersion, std::memory_order_release);
}

std::optional<Reception> ReceptionPartagee::lire() const {
    constexpr int essais = 1000;
    if (version_.load(std::memory_order_acquire) != marqueDeVersion) {
        return std::nullopt;
    }
    for (int essai = 0; essai < essais; ++essai) {
        const std::uint64_t sequence = sequence_.load(std::memory_order_acquire);
        Mots mots{};
        for (std::size_t i = 0; i < mots.size(); ++i) {
            mots[i] = mots_[i].load(std::memory_order_acquire);
        }
        if (sequence % 2 == 0 && sequence_.load(std::memory_order_relaxed) == sequence) {
            return std::bit_cast<Reception>(mots);
        }
    }
    return std::nullopt;
}

std::string cheminDeReception(const std::string& racine) {
    return racine + "/etat/reception";
}

// Le fichier est rouvert à chaque lecture : une racine peut être refaite sous les yeux du lecteur.
std::optional<Reception> lireReception(const std::string& racine) {
    const int fichier = ::open(cheminDeReception(racine).c_str(), O_RDONLY | O_CLOEXEC);
    if (fichier < 0) {
        return std::nullopt;
    }

    struct stat etat {};

    std::optional<Reception> reception;
    if (::fstat(fichier, &etat) == 0 &&
        etat.st_size >= static_cast<off_t>(sizeof(ReceptionPartagee))) {
        void* projection =
            ::mmap(nullptr, sizeof(ReceptionPartagee), PROT_READ, MAP_SHARED, fichier, 0);
        if (projection != MAP_FAILED) {
            reception = static_cast<const ReceptionPartagee*>(projection)->lire();
            ::munmap(projection, sizeof(ReceptionPartagee));
        }
    }
    ::close(fichier);
    return reception;
}

} // namespace d2xx
