// Abaisse une limite du processus (taille des fichiers, nombre de descripteurs) le temps d'un bloc
// : les pannes que root rencontre comme tout le monde.
#pragma once

#include <csignal>
#include <sys/resource.h>

namespace essai {

class Limite {
public:
    Limite(int ressource, rlim_t valeur) : ressource_(ressource) {
        std::signal(SIGXFSZ, SIG_IGN); // dépasser la taille permise doit rendre une erreur
        ::getrlimit(static_cast<__rlimit_resource>(ressource_), &avant_);
        const rlimit abaissee{valeur, avant_.rlim_max};
        ::setrlimit(static_cast<__rlimit_resource>(ressource_), &abaissee);
    }

    ~Limite() { ::setrlimit(static_cast<__rlimit_resource>(ressource_), &avant_); }

    Limite(const Limite&) = delete;
    Limite& operator=(const Limite&) = delete;

private:
    int ressource_;
    rlimit avant_{};
};

} // namespace essai
