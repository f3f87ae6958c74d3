#include "mac_simule/d2xx/compteur.hpp"

#include <algorithm>

namespace d2xx {

void Compteur::compter(const Trame& trame) {
    const Verdict verdict = trame.verdict();
    mesurerCadence(trame);
    ++bilan_.trames;
    bilan_.derniereTrame = std::max(trame.fin, trame.debut);
    bilan_.verdict = verdict;
    if (verdict == Verdict::correct) {
        ++bilan_.correctes;
    } else {
        bilan_.dernierDefaut = verdict;
    }
    if (comprise(verdict)) {
        bilan_.derniereComprise = trame.fin;
        bilan_.niveauMin = trame.niveauMin;
        bilan_.niveauMax = trame.niveauMax;
    }
}

void Compteur::mesurerCadence(const Trame& trame) {
    if (trame.intervalle > microsecondes(1'000'000)) {
        vues_ = 0;
    }
    ruptures_[vues_ % fenetre] = trame.debut;
    ++vues_;
    const std::size_t gardees = std::min(vues_, fenetre);
    const Nanosecondes plusAncienne = ruptures_[vues_ > fenetre ? vues_ % fenetre : 0];
    const Nanosecondes etendue = trame.debut - plusAncienne;
    bilan_.milliTramesParSeconde =
        etendue > 0 ? static_cast<std::uint32_t>(static_cast<Nanosecondes>(gardees - 1) *
                                                 1'000'000'000'000 / etendue)
                    : 0;
}

} // namespace d2xx
