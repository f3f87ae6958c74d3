// Les chiffres d'un relevé : cadence, régularité, BREAK, trames coupées, temps de calcul.
//
// La première seconde n'y compte pas, sauf pour les trames coupées et les échecs, qui comptent
// toujours. Une ouverture de session rompt la suite des périodes. Centiles : le rang le plus
// proche.
#pragma once

#include "mesures/releve/evenements.hpp"

#include <span>

namespace releve {

// Durées en microsecondes. Ce qui ne peut pas se calculer (moins de deux trames, pas de ligne de
// temps de calcul) n'est pas un nombre (NaN).
struct Chiffres {
    std::size_t trames = 0;
    double tramesParSeconde = 0;
    double periodeMoyenne = 0;
    double periodeP99 = 0;
    double periodeEcartType = 0;
    double gigueP99 = 0; // de l'écart à la période médiane
    double breakMin = 0;
    double breakP50 = 0;
    std::size_t coupees = 0; // BREAK venu avant le départ des derniers créneaux
    std::size_t echecs = 0;  // appels refusés, et trames sans écriture
    double calculFil = 0;    // par trame
    double calculProcessus = 0;
};

Chiffres calculer(std::span<const Evenement> evenements);

// Réunit plusieurs passages : la médiane de chaque chiffre, le minimum des BREAK minimaux, la
// somme des trames, des coupées et des échecs. Une machine virtuelle se fige parfois : la médiane
// de trois passages l'ignore.
Chiffres rassembler(std::span<const Chiffres> passages);

} // namespace releve
