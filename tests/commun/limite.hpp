// Abaisse une limite du processus (taille des fichiers, nombre de descripteurs), ou la rend par
// RLIM_INFINITY : les pannes que root rencontre comme tout le monde.
#pragma once

#include <algorithm>
#include <csignal>
#include <sys/resource.h>

namespace essai {

inline void limiter(int ressource, rlim_t valeur) {
    std::signal(SIGXFSZ, SIG_IGN); // dépasser la taille permise doit rendre une erreur
    rlimit limite{};
    ::getrlimit(static_cast<__rlimit_resource>(ressource), &limite);
    limite.rlim_cur = std::min(valeur, limite.rlim_max);
    ::setrlimit(static_cast<__rlimit_resource>(ressource), &limite);
}

} // namespace essai
