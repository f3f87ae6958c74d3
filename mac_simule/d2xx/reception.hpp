// Ce que le récepteur virtuel voit depuis l'ouverture de l'émetteur, tenu trame après trame :
// niveaux, cadence, défauts.
#pragma once

#include "mac_simule/d2xx/recepteur.hpp"

#include <array>

namespace d2xx {

struct Reception {
    std::uint64_t trames = 0;
    std::uint64_t correctes = 0;
    Nanosecondes derniereTrame = 0;    // fin du dernier créneau reçu ; 0 : aucune trame
    Nanosecondes derniereComprise = 0; // de même, trames que le projecteur suit
    std::uint32_t milliTramesParSeconde = 0;
    std::uint8_t niveauMin = 0; // de la dernière trame comprise
    std::uint8_t niveauMax = 0;
    Verdict verdict = Verdict::correct; // de la dernière trame
    std::uint8_t reserve = 0;
};

// Valeur pure, sans allocation.
class Compteur {
public:
    void compter(const Trame& trame);

    [[nodiscard]] const Reception& bilan() const { return bilan_; }

private:
    void mesurerCadence(const Trame& trame);

    static constexpr std::size_t fenetre = 16;

    Reception bilan_;
    std::array<Nanosecondes, fenetre> breaks_{}; // les derniers, en anneau
    std::size_t vus_ = 0;                        // depuis la dernière perte du signal
};

} // namespace d2xx
