// Les motifs de test et ce qu'ils donnent à chaque trame. Fonctions pures.
#pragma once

#include <cstdint>

enum class MotifDMX {
    plein,      // 255 sur toutes les trames
    noir,       // 0 sur toutes les trames
    clignotant, // 15 trames à 255, 15 trames à 0, et ainsi de suite
};

// Valeur des 512 canaux à la trame n (comptée depuis le départ du fil d'envoi).
std::uint8_t valeurCanaux(MotifDMX motif, std::int64_t n);

// Nom du motif, pour le journal.
const char* nomMotif(MotifDMX motif);
