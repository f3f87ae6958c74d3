#include "plateforme/chargeur.hpp"

#include "plateforme/posix/particularites.hpp"

#include <dlfcn.h>

namespace plateforme {

Chargement charger(const std::string& chemin) {
    // Un chemin vide désignerait le programme lui-même.
    if (chemin.empty()) {
        return {nullptr, "l'application n'a pas de dossier de bibliothèques"};
    }
    if (void* bibliotheque = ::dlopen(natif::cheminReel(chemin).c_str(), RTLD_NOW)) {
        return {bibliotheque, {}};
    }
    const char* erreur = ::dlerror();
    return {nullptr, erreur == nullptr ? std::string() : natif::texteAffiche(erreur)};
}

void* symbole(void* bibliotheque, const char* nom) {
    return ::dlsym(bibliotheque, nom);
}

} // namespace plateforme
