#include "mac_simule/d2xx/releve.hpp"

#include <algorithm>
#include <array>
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace d2xx {

namespace {

constexpr std::size_t kCapacite = std::size_t{16} << 20; // une heure de trames

// Lire le temps de calcul est un appel système : une fois par seconde suffit.
constexpr unsigned kEcrituresEntreDeuxCalculs = 32;

std::size_t longueur = 0; // de ce que ce processus a écrit, toutes ouvertures comprises

std::uint64_t tempsDeCalcul(clockid_t horloge) {
    timespec lu{};
    // Ces horloges existent toujours ici : l'appel ne peut pas échouer.
    (void)::clock_gettime(horloge, &lu);
    return static_cast<std::uint64_t>(lu.tv_sec * 1'000'000'000 + lu.tv_nsec);
}

} // namespace

Releve::Releve() {
    const char* chemin = std::getenv("LUMIVIA_RELEVE_DMX");
    if (chemin == nullptr || *chemin == '\0') {
        return;
    }
    fichier_ = ::open(chemin, O_RDWR | O_CREAT | O_CLOEXEC | (longueur == 0 ? O_TRUNC : 0), 0644);
    void* debut = MAP_FAILED;
    if (fichier_ >= 0 && ::posix_fallocate(fichier_, 0, static_cast<off_t>(kCapacite)) == 0) {
        debut = ::mmap(nullptr, kCapacite, PROT_READ | PROT_WRITE, MAP_SHARED, fichier_, 0);
    }
    if (debut == MAP_FAILED) {
        std::fprintf(stderr, "Le relevé DMX ne peut pas être écrit dans « %s ».\n", chemin);
        return;
    }
    debut_ = static_cast<char*>(debut);
    // Les pages sont prises maintenant : le fil d'envoi n'en attend aucune.
    std::memset(debut_ + longueur, 0, kCapacite - longueur);
    if (longueur == 0) {
        constexpr std::string_view entete = "# dmx-record 1 horloge=CLOCK_MONOTONIC unite=ns\n";
        longueur = entete.copy(debut_, entete.size());
    }
}

Releve::~Releve() {
    if (debut_ != nullptr) {
        // Un échec laisse des zéros à la fin, que le lecteur sait ignorer.
        (void)::ftruncate(fichier_, static_cast<off_t>(longueur));
        ::munmap(debut_, kCapacite);
    }
    if (fichier_ >= 0) {
        ::close(fichier_);
    }
}

void Releve::noter(Nanosecondes instant, const char* evenement, std::uint64_t valeur,
                   const char* suite) {
    if (debut_ == nullptr) {
        return;
    }
    const std::size_t reste = kCapacite - longueur;
    const int ecrits = std::snprintf(debut_ + longueur, reste, "%" PRId64 " %s %" PRIu64 "%s\n",
                                     instant, evenement, valeur, suite);
    // Plein, le relevé s'arrête là : une ligne coupée tromperait plus qu'une fin.
    if (ecrits > 0 && static_cast<std::size_t>(ecrits) < reste) {
        longueur += static_cast<std::size_t>(ecrits);
    }
}

void Releve::noterEcriture(Nanosecondes instant, std::span<const std::uint8_t> octets) {
    if (debut_ == nullptr) {
        return;
    }
    constexpr std::size_t notes = 8;
    std::array<char, 1 + 2 * notes + 1> suite{" "};
    for (std::size_t i = 0; i < std::min(octets.size(), notes); ++i) {
        std::snprintf(&suite[1 + 2 * i], 3, "%02x", octets[i]);
    }
    noter(instant, "write", octets.size(), suite.data());
}

void Releve::noterRetour(Nanosecondes instant, std::size_t octets) {
    noter(instant, "write_end", octets);
    if (debut_ != nullptr && ++ecritures_ % kEcrituresEntreDeuxCalculs == 0) {
        noter(instant, "cpu_process", tempsDeCalcul(CLOCK_PROCESS_CPUTIME_ID));
        noter(instant, "cpu_thread", tempsDeCalcul(CLOCK_THREAD_CPUTIME_ID));
    }
}

} // namespace d2xx
