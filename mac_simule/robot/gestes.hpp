// Les gestes à faire sur chaque page, une ligne par page : son titre, puis ses gestes, séparés par
// des barres. Fonctions sans fenêtre.
//
// Un geste est le titre d'un bouton, ou l'un de ceux-ci :
//   suite            presser le bouton par défaut
//   fermer           fermer la fenêtre
//   SIGTERM          celui que l'assistant reçoit quand le Mac redémarre
//   choisir ARTICLE  dans le menu local
//   attendre N       N millisecondes
//   @FAIT=TEXTE      changer un fait du Mac, dès le geste d'avant
//   image [NOM]      prendre l'image de la page et la transcrire
//   portrait NOM     demander au banc une image de lui-même
//   guide            transcrire la consigne de chaque article du menu local
//   finir            garder le rapport et le journal, et terminer
// Le titre « * » vaut pour les pages qui n'ont pas de ligne ; « fin TITRE », pour la page où le
// scénario mène. À la deuxième visite d'une page, sa deuxième ligne sert, s'il y en a une.
#pragma once

#include <deque>
#include <map>
#include <string>

namespace robot {

using Table = std::multimap<std::string, std::deque<std::string>>;

Table lireGestes(const std::string& lignes);

// Ceux d'une page qui paraît, `derniere` quand le scénario y mène ; aucun si rien n'en est dit.
std::deque<std::string> prendreGestes(Table& table, const std::string& titre, bool derniere);

} // namespace robot
