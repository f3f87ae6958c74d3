#include "mac_simule/d2xx/depot.hpp"

#include <atomic>
#include <bit>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace d2xx {

namespace {

constexpr std::uint64_t kMarqueDeVersion = 0x4C554D5652430002; // « LUMVRC », version 2

using Mots = std::array<std::uint64_t, sizeof(Reception) / sizeof(std::uint64_t)>;
static_assert(sizeof(Mots) == sizeof(Reception));
static_assert(std::atomic<std::uint64_t>::is_always_lock_free);

struct Partage {
    std::atomic<std::uint64_t> version;
    std::atomic<std::uint64_t> sequence;
    std::array<std::atomic<std::uint64_t>, std::tuple_size_v<Mots>> mots;
};

// Absente quand la version est autre, ou que l'écrivain s'est arrêté au milieu d'une écriture.
std::optional<Reception> lire(const Partage& partage) {
    constexpr int essais = 1000;
    if (partage.version.load(std::memory_order_acquire) != kMarqueDeVersion) {
        return std::nullopt;
    }
    for (int essai = 0; essai < essais; ++essai) {
        const std::uint64_t sequence = partage.sequence.load(std::memory_order_acquire);
        Mots mots{};
        for (std::size_t i = 0; i < mots.size(); ++i) {
            mots[i] = partage.mots[i].load(std::memory_order_acquire);
        }
        if (sequence % 2 == 0 && partage.sequence.load(std::memory_order_relaxed) == sequence) {
            return std::bit_cast<Reception>(mots);
        }
    }
    return std::nullopt;
}

std::unique_ptr<Projection> projeter(const std::string& racine, int drapeaux,
                                     Projection::Preparation preparer) {
    return Projection::ouvrir(racine + "/etat/reception", drapeaux, sizeof(Partage), preparer);
}

} // namespace

std::optional<Depot> Depot::prendre(const std::string& racine) {
    std::unique_ptr<Projection> projection = projeter(racine, O_RDWR | O_CREAT, [](int fichier) {
        return ::flock(fichier, LOCK_EX | LOCK_NB) == 0 &&
               ::ftruncate(fichier, sizeof(Partage)) == 0;
    });
    return projection ? std::optional(Depot(std::move(projection))) : std::nullopt;
}

// Chaque mot est rendu (release) puis acquis : un lecteur qui voit un mot de la nouvelle écriture
// voit aussi le numéro impair qui la précède, et recommence.
void Depot::deposer(const Reception& bilan) {
    auto& partage = *static_cast<Partage*>(projection_->debut());
    const auto mots = std::bit_cast<Mots>(bilan);
    const std::uint64_t sequence = partage.sequence.load(std::memory_order_relaxed) | 1;
    partage.sequence.store(sequence, std::memory_order_relaxed);
    for (std::size_t i = 0; i < mots.size(); ++i) {
        partage.mots[i].store(mots[i], std::memory_order_release);
    }
    partage.sequence.store(sequence + 1, std::memory_order_release);
    partage.version.store(kMarqueDeVersion, std::memory_order_release);
}

// Le fichier est rouvert à chaque lecture : une racine peut être refaite sous les yeux du lecteur.
std::optional<Reception> lireReception(const std::string& racine) {
    const auto projection = projeter(racine, O_RDONLY, [](int fichier) {
        struct stat etat {};

        return ::fstat(fichier, &etat) == 0 && etat.st_size >= static_cast<off_t>(sizeof(Partage));
    });
    return projection ? lire(*static_cast<const Partage*>(projection->debut())) : std::nullopt;
}

} // namespace d2xx
