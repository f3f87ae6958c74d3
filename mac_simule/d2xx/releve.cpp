#include "mac_simule/d2xx/releve.hpp"

#include "mac_simule/d2xx/horloge.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace d2xx {

Releve* Releve::duProcessus() {
    static Releve* const releve = creer();
    return releve;
}

Releve* Releve::creer() {
    const char* chemin = std::getenv("LUMIVIA_RELEVE_DMX");
    if (chemin == nullptr || *chemin == '\0') {
        return nullptr;
    }
    const int fichier = ::open(chemin, O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    void* debut = fichier < 0
                      ? MAP_FAILED
                      : ::mmap(nullptr, capacite, PROT_READ | PROT_WRITE, MAP_SHARED, fichier, 0);
    if (debut == MAP_FAILED) {
        std::fprintf(stderr, "Le relevé DMX ne peut pas être écrit dans « %s ».\n", chemin);
        if (fichier >= 0) {
            ::close(fichier);
        }
        return nullptr;
    }
    return new Releve(fichier, static_cast<char*>(debut));
}

bool Releve::etendre() {
    // Les pages sont prises maintenant : le fil d'envoi n'en attend aucune.
    constexpr std::size_t page = 4096;
    etendu_ = ::posix_fallocate(fichier_, 0, static_cast<off_t>(capacite)) == 0;
    if (!etendu_) {
        std::fputs("Il n'y a pas la place d'écrire le relevé DMX.\n", stderr);
        return false;
    }
    for (std::size_t place = longueur_; place < capacite; place += page) {
        debut_[place] = '\0';
    }
    if (longueur_ == 0) {
        ajouter("# dmx-record 1 horloge=CLOCK_MONOTONIC unite=ns\n");
    }
    return true;
}

void Releve::raccourcir() {
    etendu_ = false;
    // Un échec laisse des zéros à la fin, que le lecteur sait ignorer.
    (void)::ftruncate(fichier_, static_cast<off_t>(longueur_));
}

void Releve::noter(Nanosecondes instant, std::string_view evenement, std::uint64_t valeur,
                   std::string_view suite) {
    std::array<char, 128> ligne; // NOLINT(*-member-init) : remplie jusqu'à `place`
    char* const fin = ligne.data() + ligne.size();
    char* place = std::to_chars(ligne.data(), fin, instant).ptr;
    *place++ = ' ';
    place = std::ranges::copy(evenement, place).out;
    *place++ = ' ';
    place = std::to_chars(place, fin, valeur).ptr;
    if (!suite.empty()) {
        *place++ = ' ';
        place = std::ranges::copy(suite, place).out;
    }
    *place++ = '\n';
    ajouter({ligne.data(), static_cast<std::size_t>(place - ligne.data())});
}

void Releve::noterEcriture(Nanosecondes instant, std::span<const std::uint8_t> octets) {
    constexpr std::string_view chiffres = "0123456789abcdef";
    std::array<char, 16> hexadecimal{};
    const auto premiers = octets.first(std::min(octets.size(), hexadecimal.size() / 2));
    std::size_t place = 0;
    for (const std::uint8_t octet : premiers) {
        hexadecimal[place++] = chiffres[octet >> 4];
        hexadecimal[place++] = chiffres[octet & 15];
    }
    noter(instant, "write", octets.size(), {hexadecimal.data(), place});
}

void Releve::noterCalcul(Nanosecondes instant) {
    noter(instant, "cpu_process",
          static_cast<std::uint64_t>(lireHorloge(CLOCK_PROCESS_CPUTIME_ID)));
    noter(instant, "cpu_thread", static_cast<std::uint64_t>(lireHorloge(CLOCK_THREAD_CPUTIME_ID)));
}

// Plein, le relevé s'arrête là : une ligne coupée tromperait plus qu'une fin.
void Releve::ajouter(std::string_view ligne) {
    if (etendu_ && longueur_ + ligne.size() <= capacite) {
        std::memcpy(debut_ + longueur_, ligne.data(), ligne.size());
        longueur_ += ligne.size();
    }
}

} // namespace d2xx
