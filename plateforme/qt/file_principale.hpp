// La file du fil principal : notre propre file, gardée par un verrou, et un descripteur qui
// réveille la boucle ; faute de descripteur, la boucle la regarde d'elle-même. Les fils
// d'arrière-plan ne touchent ainsi aucun objet de Qt, que le processus peut être en train de
// détruire.
#pragma once

#include <deque>
#include <functional>
#include <mutex>

namespace plateforme {

// Appelle `relever` sur le fil principal chaque fois que le descripteur a quelque chose à lire ; si
// le système n'en a pas donné (négatif), vingt fois par seconde. Fil principal, une fois
// l'application créée, et jusqu'à sa fin.
void surveiller(int descripteur, const std::function<void()>& relever);

class FilePrincipale {
public:
    // L'unique file, vivante jusqu'à la fin du processus.
    static FilePrincipale& partagee();

    // N'importe quel fil.
    void deposer(std::function<void()> tache);

    // Surveille le réveil depuis la boucle de Qt. Fil principal, une fois l'application créée.
    void brancher();

private:
    FilePrincipale();
    void vider();

    std::mutex verrou_;
    std::deque<std::function<void()>> taches_;
    int reveil_;
    bool branchee_ = false;
    bool enCours_ = false;
};

} // namespace plateforme
