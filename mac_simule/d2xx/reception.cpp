#include "mac_simule/d2xx/reception.hpp"

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
    }
    if (comprise(verdict)) {
        bilan_.derniereComprise = trame.fin;
        bilan_.niveauMin = trame.niveauMin;
        bilan_.niveauMax = trame.niveauMax;
    }
}

void Compteur::mesurerCadence(const Trame& trame) {
    if (trame.intervalle > microsecondes(1'000'000)) {
        vus_ = 0;
    }
    breaks_[vus_ % fenetre] = trame.debut;
    ++vus_;
    const std::size_t gardes = std::min(vus_, fenetre);
    const Nanosecondes plusAncien = breaks_[vus_ > fenetre ? vus_ % fenetre : 0];
    const Nanosecondes etendue = trame.debut - plusAncien;
    bilan_.milliTramesParSeconde =
        etendue > 0 ? static_cast<std::uint32_t>(static_cast<Nanosecondes>(gardes - 1) *
                                                 1'000'000'000'000 / etendue)
                    : 0;
}

} // namespace d2xx
