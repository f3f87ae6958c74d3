/* L'horloge des mesures, pour le C et le C++. */
#pragma once

#include <time.h>

/* Nanosecondes écoulées depuis un point fixe. */
static inline long long nanosecondes(void) {
    struct timespec lue;
    clock_gettime(CLOCK_MONOTONIC, &lue);
    return lue.tv_sec * 1000000000LL + lue.tv_nsec;
}
