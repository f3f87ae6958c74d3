// Modèle de la puce USB-série : à quel instant un appel agit sur la ligne, et quand il revient.
//
// Deux bornes du vrai matériel. Immédiate : chaque appel revient aussitôt, on voit ce que fait le
// programme seul. Réaliste : un transfert de commande dure 250 µs et agit à sa fin ; l'écriture
// revient quand ce qui reste tient dans le tampon d'émission. Dans les deux, le premier créneau
// part au plus tôt 125 µs après l'appel d'écriture. Valeur pure, sans horloge ni attente.
#pragma once

#include "mac_simule/d2xx/ligne.hpp"

#include <cstddef>

namespace d2xx {

class Puce {
public:
    enum class Modele { immediate, realiste };

    struct Ecriture {
        Nanosecondes premierCreneau;
        Nanosecondes retour;
    };

    explicit Puce(Modele modele) : modele_(modele) {}

    // Instant où une commande passée à `appel` agit et revient.
    [[nodiscard]] Nanosecondes commande(Nanosecondes appel) const;

    // Place `octets` créneaux sur la ligne, derrière ceux qui n'ont pas fini de partir.
    Ecriture ecrire(Nanosecondes appel, std::size_t octets, Nanosecondes creneau);

private:
    Modele modele_;
    Nanosecondes libre_ = 0; // fin du dernier créneau confié à la ligne
};

} // namespace d2xx
