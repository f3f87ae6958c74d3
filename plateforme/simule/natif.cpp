// Où sont, sous la racine du Mac simulé, les chemins de Mac que le cœur emploie ; et ce que Linux
// fait à sa façon.
#include "plateforme/posix/particularites.hpp"

#include "mac_simule/faits/faits.hpp"
#include "plateforme/fichiers.hpp"

#include <array>
#include <fcntl.h>
#include <string_view>
#include <unistd.h>

namespace plateforme {
namespace {

constexpr std::array<std::string_view, 6> kDossiersDuMac{"/Library", "/Users",   "/Applications",
                                                         "/System",  "/usr/bin", "/usr/sbin"};

} // namespace

namespace natif {

std::string cheminReel(const std::string& chemin) {
    for (const std::string_view dossier : kDossiersDuMac) {
        if (chemin.compare(0, dossier.size(), dossier) == 0 &&
            (chemin.size() == dossier.size() || chemin[dossier.size()] == '/')) {
            return faits::Mac::duProcessus().racine() + chemin;
        }
    }
    return chemin;
}

std::string texteAffiche(std::string texte) {
    const std::string& racine = faits::Mac::duProcessus().racine();
    for (std::size_t ou = texte.find(racine); ou != std::string::npos;
         ou = texte.find(racine, ou)) {
        texte.erase(ou, racine.size());
    }
    return texte;
}

bool ouvrirTube(int tube[2]) {
    return ::pipe2(tube, O_CLOEXEC) == 0;
}

int isolerDescripteurs(posix_spawn_file_actions_t& actions, posix_spawnattr_t&) {
    return ::posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);
}

} // namespace natif

std::string dossierPersonnel() {
    return "/Users/" + faits::Mac::duProcessus().lire("utilisateur").value_or("inconnu");
}

} // namespace plateforme
