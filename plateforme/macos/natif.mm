#include "plateforme/fichiers.hpp"
#include "plateforme/macos/textes.hpp"
#include "plateforme/posix/particularites.hpp"

#include <fcntl.h>
#include <unistd.h>

namespace plateforme {

std::string dossierPersonnel() {
    @autoreleasepool {
        return macos::versTexte(NSFileManager.defaultManager.homeDirectoryForCurrentUser.path);
    }
}

namespace natif {

std::string cheminReel(const std::string& chemin) { return chemin; }

std::string texteAffiche(std::string texte) { return texte; }

// Entre pipe et fcntl, un autre fil peut lancer un enfant : il ne reçoit rien de plus, puisque tous
// les enfants passent par isolerDescripteurs.
bool ouvrirTube(int tube[2]) {
    return ::pipe(tube) == 0 && ::fcntl(tube[0], F_SETFD, FD_CLOEXEC) == 0 &&
           ::fcntl(tube[1], F_SETFD, FD_CLOEXEC) == 0;
}

// POSIX_SPAWN_CLOEXEC_DEFAULT ferme tout ce qu'aucune action ne nomme. Les sorties sont déjà
// dirigées vers le tube ; l'entrée, héritée, se nomme ici, si toutefois elle est ouverte.
int isolerDescripteurs(posix_spawn_file_actions_t& actions, posix_spawnattr_t& attributs) {
    short options = 0;
    int code = ::posix_spawnattr_getflags(&attributs, &options);
    if (code == 0) {
        options = static_cast<short>(options | POSIX_SPAWN_CLOEXEC_DEFAULT);
        code = ::posix_spawnattr_setflags(&attributs, options);
    }
    if (code == 0 && ::fcntl(STDIN_FILENO, F_GETFD) != -1) {
        code = ::posix_spawn_file_actions_addinherit_np(&actions, STDIN_FILENO);
    }
    return code;
}

} // namespace natif
} // namespace plateforme
