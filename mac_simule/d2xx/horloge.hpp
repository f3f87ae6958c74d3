// L'heure et l'attente de la bibliothèque, en nanosecondes.
#pragma once

#include "mac_simule/d2xx/ligne.hpp"

#include <cerrno>
#include <ctime>

namespace d2xx {

inline Nanosecondes lireHorloge(clockid_t horloge) {
    timespec lue{};
    // Ces horloges existent toujours ici : l'appel ne peut pas échouer.
    (void)::clock_gettime(horloge, &lue);
    return lue.tv_sec * Nanosecondes{1'000'000'000} + lue.tv_nsec;
}

inline Nanosecondes maintenant() {
    return lireHorloge(CLOCK_MONOTONIC);
}

// Dort jusqu'à cet instant ; revient aussitôt, sans appel système, quand il est passé.
inline void attendre(Nanosecondes instant) {
    if (instant > maintenant()) {
        const timespec reveil{static_cast<time_t>(instant / 1'000'000'000),
                              static_cast<long>(instant % 1'000'000'000)};
        while (::clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &reveil, nullptr) == EINTR) {
        }
    }
}

} // namespace d2xx
