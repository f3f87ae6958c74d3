// Ce que le processus tient : descripteurs, fils, mémoire.
#pragma once

#include "mesures/commun/memoire.h"

#include <cstddef>
#include <filesystem>

namespace essai {

inline std::ptrdiff_t elements(const std::filesystem::path& dossier) {
    const std::filesystem::directory_iterator lu(dossier);
    return std::distance(begin(lu), end(lu));
}

struct Ressources {
    std::ptrdiff_t descripteurs = elements("/proc/self/fd");
    std::ptrdiff_t fils = elements("/proc/self/task");
    long memoire = memoireResidente(); // ko

    bool memesTenues(const Ressources& autres) const {
        return descripteurs == autres.descripteurs && fils == autres.fils;
    }
};

} // namespace essai
