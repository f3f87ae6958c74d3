// Tient le bilan d'une session, trame après trame : niveaux, cadence, défauts. Valeur pure.
#pragma once

#include "mac_simule/d2xx/reception.hpp"

namespace d2xx {

class Compteur {
public:
    void compter(const Trame& trame);

    [[nodiscard]] const Reception& bilan() const { return bilan_; }

private:
    void mesurerCadence(const Trame& trame);

    static constexpr std::size_t fenetre = 16;

    Reception bilan_;
    std::array<Nanosecondes, fenetre> ruptures_{}; // les dernières, en anneau
    std::size_t vues_ = 0;                         // depuis la dernière perte du signal
};

} // namespace d2xx
