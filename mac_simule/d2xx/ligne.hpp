// La ligne série entre la puce et le projecteur : le temps et les réglages.
#pragma once

#include <chrono>
#include <cstdint>
#include <thread>

namespace d2xx {

using Nanosecondes = std::int64_t; // instant de CLOCK_MONOTONIC, ou durée

constexpr Nanosecondes microsecondes(std::int64_t nombre) {
    return nombre * 1000;
}

inline Nanosecondes maintenant() {
    return std::chrono::nanoseconds(std::chrono::steady_clock::now().time_since_epoch()).count();
}

// Dort jusqu'à cet instant ; revient aussitôt, sans appel système, quand il est passé.
inline void attendre(Nanosecondes instant) {
    std::this_thread::sleep_for(std::chrono::nanoseconds(instant - maintenant()));
}

// Réglages de la ligne, avec les codes de D2XX. Les valeurs de départ sont celles d'une puce que
// personne n'a réglée : qui en oublie une n'éclaire rien.
struct Ligne {
    std::uint32_t debit = 9600;
    std::uint8_t bits = 8;
    std::uint8_t arrets = 0;     // 0 : un bit d'arrêt, 2 : deux
    std::uint8_t parite = 0;     // 0 : aucune
    std::uint16_t flux = 0x0100; // 0 : aucun ; RTS/CTS, rien au bout, retient les octets

    // Durée d'un créneau : bit de départ, données, parité, bits d'arrêt.
    [[nodiscard]] constexpr Nanosecondes creneau() const {
        const Nanosecondes total = 1 + bits + (parite != 0 ? 1 : 0) + (arrets == 2 ? 2 : 1);
        return debit == 0 ? 0 : total * 1'000'000'000 / debit;
    }

    // Vrai quand un récepteur DMX512 peut lire cette ligne : bits de 3,92 à 4,08 µs, huit bits,
    // deux bits d'arrêt, ni parité ni contrôle de flux.
    [[nodiscard]] constexpr bool estDmx() const {
        return debit >= 245'099 && debit <= 255'102 && bits == 8 && arrets == 2 && parite == 0 &&
               flux == 0;
    }
};

} // namespace d2xx
