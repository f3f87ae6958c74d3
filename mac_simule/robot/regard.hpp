// La fenêtre de l'assistant, vue et touchée du dehors : la surface que chaque boîte à outils sert à
// sa façon, celle de Qt dans regard_qt.cpp. Les textes sont ceux qu'une personne lit. Fil
// principal.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace robot {

struct Vue {
    std::string genre; // « étiquette », « bouton », « menu », « image » ; « fenêtre »
    int x = 0;         // en points, depuis le coin de la page ou de l'alerte
    int y = 0;
    int largeur = 0;
    int hauteur = 0;
    // La police, « 13 points, gras », puis « secondaire » ou « par défaut » ; d'un menu, son choix.
    std::string reglages;
    std::string texte; // d'un menu, un article par ligne ; d'une image, sa description
};

// Le titre de la page ; vide tant que la fenêtre ne se voit pas. La suite attend qu'elle se voie.
std::string titre();

bool alerteOuverte();

// Ce qui se voit de l'alerte ouverte, sinon de la page : la fenêtre elle-même, au titre de sa
// barre, puis ses vues, dans l'ordre où elle les tient.
std::vector<Vue> scene();

// Presse ce bouton de l'alerte ouverte, sinon de la page ; sans titre, celui par défaut. L'appui
// vient quand ce regard est fini, et avant le suivant. Faux quand ce bouton ne se voit pas.
bool presser(const std::string& titre);

// Choisit cet article du menu local de la page. Faux quand il n'y est pas.
bool choisir(const std::string& article);

void fermer();

std::string pressePapiers();

// L'image de la page telle qu'on la voit, l'alerte ouverte par-dessus. Faux si elle ne s'écrit pas.
bool photographier(const std::string& chemin);

// Appelle `regard` souvent, et dès qu'une page vient d'être mise en place : aucune ne passe entre
// deux regards, pas même celle qui ne dure que le temps d'une analyse. Une fois par processus.
void surveiller(std::function<void()> regard);

// Fait finir l'assistant avec ce code.
void finir(int code);

// Les textes des vues de ce genre, dans l'ordre de la scène.
inline std::vector<std::string> textes(const std::string& genre) {
    std::vector<std::string> lus;
    for (const Vue& vue : scene()) {
        if (vue.genre == genre) {
            lus.push_back(vue.texte);
        }
    }
    return lus;
}

} // namespace robot
