// Ce qu'une personne rencontre, en texte : de quoi comparer deux passages sans regarder d'images.
// Fonctions sans fenêtre.
#pragma once

#include "mac_simule/robot/regard.hpp"

namespace robot {

// La fenêtre, puis ses vues de haut en bas et de gauche à droite, une par paragraphe : son genre,
// sa place arrondie, ses réglages et ses textes. La mise en page est faite.
std::string transcrire(std::vector<Vue> vues);

// Le nom de fichier d'une page : son titre sans accents ni ponctuation.
std::string nomDeFichier(const std::string& titre);

} // namespace robot
