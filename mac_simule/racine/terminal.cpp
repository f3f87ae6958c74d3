// Le Terminal du Mac simulé : « Terminal RACINE SCRIPT », que lance `open -a Terminal SCRIPT`.
//
// Avec un écran, une fenêtre xterm ; sans écran (ou pendant une démonstration, que personne ne
// regarde), un pseudo-terminal et une personne simulée.

#include "mac_simule/racine/etat.hpp"
#include "mac_simule/racine/seance.hpp"

#include <cstdlib>
#include <iostream>
#include <string>
#include <unistd.h>

namespace fs = std::filesystem;
using namespace mac_simule;

namespace {

std::string variable(const char* nom) {
    const char* valeur = std::getenv(nom);
    return valeur == nullptr ? "" : valeur;
}

bool avecEcran() {
    return !variable("DISPLAY").empty() && variable("QT_QPA_PLATFORM") != "offscreen" &&
           variable("LUMIVIA_DEMONSTRATION").empty();
}

// Ne revient que si xterm n'est pas là.
void ouvrirXterm(const std::string& racine, const std::string& script) {
    std::error_code ignoree; // sans son propre chemin, la fenêtre ne s'ouvre pas et le dit
    const std::string moi = fs::read_symlink("/proc/self/exe", ignoree);
    const std::string titre = fs::path(script).filename();
    execlp("xterm", "xterm", "-u8", "-T", titre.c_str(), "-geometry", "92x26", "-fa", "Monospace",
           "-fs", "11", "-bg", "black", "-fg", "white", "-e", moi.c_str(), "--fenetre",
           racine.c_str(), script.c_str(), nullptr);
}

int jouer(const std::string& racine, const std::string& script, bool visible) {
    std::string refus = refusDuTerminal(racine, script);
    if (refus.empty()) {
        try {
            Seance(racine, script, visible).derouler();
            return 0;
        } catch (const fs::filesystem_error& erreur) {
            refus = "La fenêtre du Terminal n'a pas pu s'ouvrir : « " + erreur.path1().string() +
                    " » ne s'écrit pas.";
        }
    }
    std::cerr << refus << '\n';
    ecrireFichier(fs::path(racine) / "etat/terminal", refus + "\n"); // à défaut, l'erreur est dite
    return 1;
}

} // namespace

int main(int nombre, char** arguments) {
    const bool fenetre = nombre == 4 && std::string("--fenetre") == arguments[1];
    if (nombre != 3 && !fenetre) {
        std::cerr << "Usage : Terminal RACINE SCRIPT\n";
        return 2;
    }
    const std::string racine = arguments[nombre - 2];
    const std::string script = arguments[nombre - 1];
    if (!fenetre && avecEcran()) {
        ouvrirXterm(racine, script);
    }
    return jouer(racine, script, fenetre);
}
