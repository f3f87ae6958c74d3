#include "mac_simule/d2xx/releve.hpp"

#include <algorithm>
#include <array>
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include <fcntl.h>
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
    projection_ = Projection::ouvrir(
        chemin, O_RDWR | O_CREAT | (longueur == 0 ? O_TRUNC : 0), kCapacite, [](int fichier) {
            return ::posix_fallocate(fichier, 0, static_cast<off_t>(kCapacite)) == 0;
        });
    if (!projection_) {
        std::fprintf(stderr, "Le relevé DMX ne peut pas être écrit dans « %s ».\n", chemin);
        return;
    }
    char* const debut = static_cast<char*>(projection_->debut());
    // Les pages sont prises maintenant : le fil d'envoi n'en attend aucune.
    std::memset(debut + longueur, 0, kCapacite - longueur);
    if (longueur == 0) {
        constexpr std::string_view entete = "# dmx-record 1 horloge=CLOCK_MONOTONIC unite=ns\n";
        longueur = entete.copy(debut, entete.size());
    }
}

Releve::~Releve() {
    if (projection_) {
        // Un échec laisse des zéros à la fin, que le lecteur sait ignorer.
        (void)::ftruncate(projection_->fichier(), static_cast<off_t>(longueur));
    }
}

void Releve::noter(Nanosecondes instant, const char* evenement, std::uint64_t valeur,
                   const char* suite) {
    if (!projection_) {
        return;
    }
    const std::size_t reste = kCapacite - longueur;
    const int ecrits =
        std::snprintf(static_cast<char*>(projection_->debut()) + longueur, reste,
                      "%" PRId64 " %s %" PRIu64 "%s\n", instant, evenement, valeur, suite);
    // Plein, le relevé s'arrête là : une ligne coupée tromperait plus qu'une fin.
    if (ecrits > 0 && static_cast<std::size_t>(ecrits) < reste) {
        longueur += static_cast<std::size_t>(ecrits);
    }
}

void Releve::noterEcriture(Nanosecondes instant, std::span<const std::uint8_t> octets) {
    if (!projection_) {
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
    if (projection_ && ++ecritures_ % kEcrituresEntreDeuxCalculs == 0) {
        noter(instant, "cpu_process", tempsDeCalcul(CLOCK_PROCESS_CPUTIME_ID));
        noter(instant, "cpu_thread", tempsDeCalcul(CLOCK_THREAD_CPUTIME_ID));
    }
}

} // namespace d2xx
