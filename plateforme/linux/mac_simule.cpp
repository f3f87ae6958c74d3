#include "plateforme/linux/mac_simule.hpp"

#include "plateforme/fichiers.hpp"
#include "plateforme/posix/natif.hpp"

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <string_view>
#include <unistd.h>

namespace plateforme {
namespace {

constexpr std::array<std::string_view, 6> kDossiersDuMac{"/Library", "/Users",   "/Applications",
                                                         "/System",  "/usr/bin", "/usr/sbin"};

constexpr std::size_t kLimiteEtat = 1024 * 1024;

} // namespace

namespace mac_simule {

const std::string& racine() {
    // Gardée jusqu'au bout : un fil d'arrière-plan peut s'en servir pendant que le processus finit.
    static const std::string& chemin = *new std::string([] {
        const char* variable = std::getenv("LUMIVIA_MAC");
        // Sous un fichier qui n'est pas un dossier, rien n'existe.
        return variable == nullptr || *variable == '\0' ? std::string("/dev/null")
                                                        : std::string(variable);
    }());
    return chemin;
}

std::string cheminEtat(const std::string& nom) {
    return racine() + "/etat/" + nom;
}

std::optional<std::string> etat(const std::string& nom) {
    std::optional<std::string> contenu = lireFichier(cheminEtat(nom), kLimiteEtat);
    if (contenu) {
        contenu->resize(std::min(contenu->find('\n'), contenu->size()));
    }
    return contenu;
}

bool ecrireEtat(const std::string& nom, const std::string& valeur) {
    return !ecrireAtomiquement(cheminEtat(nom), valeur + "\n");
}

double vitesseHorloge() {
    const double vitesse = std::strtod(etat("vitesse_horloge").value_or("1").c_str(), nullptr);
    return vitesse > 0 ? vitesse : 1;
}

} // namespace mac_simule

namespace natif {

std::string cheminReel(const std::string& chemin) {
    for (const std::string_view dossier : kDossiersDuMac) {
        if (chemin.compare(0, dossier.size(), dossier) == 0 &&
            (chemin.size() == dossier.size() || chemin[dossier.size()] == '/')) {
            return mac_simule::racine() + chemin;
        }
    }
    return chemin;
}

std::string texteAffiche(std::string texte) {
    const std::string& racine = mac_simule::racine();
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
    return "/Users/" + mac_simule::etat("utilisateur").value_or("inconnu");
}

} // namespace plateforme
