// Ce que le projecteur dit de ce qu'il reçoit, en mots de plateau. Fonctions pures.
#pragma once

#include "mac_simule/d2xx/reception.hpp"

#include <QtCore/QString>

namespace banc {

struct Constat {
    enum class Signal { absent, correct, fautif };

    Signal signal = Signal::absent;
    double niveau = 0;  // de 0 à 1, ce que le projecteur éclaire
    QString lumiere;    // « Plein feu, 100 % »
    QString reception;  // « 32,8 trames par seconde, 1 234 reçues »
    QString diagnostic; // « Signal correct », ou la limite enfreinte
};

// Au-delà d'une seconde sans trame, un récepteur tient le signal pour perdu.
Constat constater(const std::optional<d2xx::Reception>& reception, d2xx::Nanosecondes maintenant);

} // namespace banc
