// Ce que le processus tient : descripteurs, fils, mémoire.
#pragma once

#include "commun/mac.hpp"
#include "mesures/commun/memoire.h"

namespace essai {

struct Ressources {
    std::ptrdiff_t descripteurs = elements("/proc/self/fd");
    std::ptrdiff_t fils = elements("/proc/self/task");
    long memoire = memoireResidente(); // ko

    bool memesTenues(const Ressources& autres) const {
        return descripteurs == autres.descripteurs && fils == autres.fils;
    }
};

} // namespace essai
