#include "mac_simule/d2xx/puce.hpp"

#include <algorithm>

namespace d2xx {

namespace {
constexpr Nanosecondes transfertDeCommande = microsecondes(250);
constexpr Nanosecondes attenteDuPremierCreneau = microsecondes(125);
constexpr std::size_t tamponDEmission = 128;
} // namespace

Nanosecondes Puce::commande(Nanosecondes appel) const {
    return modele_ == Modele::realiste ? appel + transfertDeCommande : appel;
}

Puce::Ecriture Puce::ecrire(Nanosecondes appel, std::size_t octets, Nanosecondes creneau) {
    const Nanosecondes premier = std::max(appel + attenteDuPremierCreneau, libre_);
    libre_ = premier + static_cast<Nanosecondes>(octets) * creneau;
    if (modele_ == Modele::immediate) {
        return {premier, appel};
    }
    const Nanosecondes enTampon = static_cast<Nanosecondes>(std::min(octets, tamponDEmission));
    return {premier, std::max(appel, libre_ - enTampon * creneau)};
}

} // namespace d2xx
