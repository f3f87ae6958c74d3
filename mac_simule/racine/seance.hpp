// Une fenêtre du Terminal simulé : un pseudo-terminal où zsh joue une copie d'un script.
#pragma once

#include "mac_simule/racine/chemins.hpp"

#include <sys/types.h>

#include <deque>
#include <filesystem>
#include <string>

namespace mac_simule {

// Pourquoi le Terminal n'ouvre pas `script` (chemin de Mac) ; vide quand il peut l'ouvrir. Rien ne
// commence tant que sudo, osascript et, depuis macOS 11, kmutil ne se résolvent pas dans la racine
// : c'est ce qui garantit qu'aucun vrai sudo ne sera jamais atteint.
std::string refusDuTerminal(const std::filesystem::path& racine, const std::string& script);

// Le script tel qu'il peut tourner ici : une copie dont les chemins passent par un lien vers la
// racine, sous /tmp, au nom sans espace. Les deux disparaissent avec l'objet. Lève
// std::filesystem::filesystem_error quand l'un ne peut pas être fait.
class Copie {
public:
    Copie(const std::filesystem::path& racine, const std::string& script);
    ~Copie();
    Copie(const Copie&) = delete;
    Copie& operator=(const Copie&) = delete;

    const std::string& prefixe() const { return prefixe_; }

    const std::string& chemin() const { return chemin_; }

private:
    std::filesystem::path dossier_;
    std::filesystem::path fichier_;
    std::string prefixe_;
    std::string chemin_;
};

// Une fenêtre est un fichier de etat/fenetres, qui porte son titre. L'effacer la ferme : c'est ce
// que fait osascript. Une fenêtre fermée avant la fin arrête son script par SIGHUP.
//
// Quand `visible`, la personne tape dans le terminal de ce processus (celui d'un xterm) et y lit.
// Sinon une personne simulée tape une ligne de etat/frappe à chaque invite de mot de passe, ou
// ferme la fenêtre si etat/terminal_ferme est là. Ce qui s'affiche est gardé dans etat/terminal.
class Seance {
public:
    Seance(const std::filesystem::path& racine, const std::string& script, bool visible);
    ~Seance();
    Seance(const Seance&) = delete;
    Seance& operator=(const Seance&) = delete;

    // Revient quand la fenêtre est fermée.
    void derouler();

private:
    bool demarrer();
    [[noreturn]] void menerLaSession() const;
    [[noreturn]] void jouer() const;
    void afficher(const std::string& texte);
    void lireLeScript();
    void transmettreLeClavier() const;
    bool repondreALInvite();

    std::filesystem::path racine_;
    std::filesystem::path fenetre_;
    bool visible_;
    Copie copie_;
    FiltrePrefixe filtre_;
    std::deque<std::string> frappe_;
    std::string recent_; // ce qui s'est affiché depuis la dernière réponse
    int maitre_ = -1;
    pid_t meneur_ = -1;
};

} // namespace mac_simule
