// L'application : son délégué, son menu, sa boucle, sa fin. Fil principal.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace plateforme {

enum class ActionMenu { terminer, copier };

struct ArticleMenu {
    std::string titre;
    ActionMenu action;
    char touche; // avec ⌘ sur Mac, Ctrl ailleurs
};

struct Menu {
    std::string titre; // vide pour le menu de l'application
    std::vector<ArticleMenu> articles;
};

// Ce que l'application demande à son délégué. L'objet doit vivre jusqu'à la fin du processus.
struct DelegueApplication {
    std::function<void()> lancementTermine;
    std::function<bool()> terminerApresDerniereFenetre;
};

void definirDelegue(const DelegueApplication& delegue);

// Application ordinaire : une icône dans le Dock et une barre de menus.
void adopterPolitiqueOrdinaire();

// Fait tourner la boucle jusqu'à la fin de l'application.
void executerApplication();

void installerMenu(const std::vector<Menu>& menus);

// Passe devant les autres applications.
void activerApplication();

// Termine l'application sans fermer la fenêtre. Sur Mac, ne revient pas.
void terminerApplication();

} // namespace plateforme
