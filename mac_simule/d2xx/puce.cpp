#include "mac_simule/d2xx/puce.hpp"

#include <algorithm>

namespace d2xx {

namespace {
constexpr Nanosecondes kTransfertDeCommande = microsecondes(250);
constexpr Nanosecondes kAttenteDuPremierCreneau = microsecondes(125);
constexpr std::size_t kTamponDEmission = 128;
} // namespace

Nanosecondes Puce::commande(Nanosecondes appel) const {
    return modele_ == Modele::realiste ? appel + kTransfertDeCommande : appel;
}

Puce::Ecriture Puce::ecrire(Nanosecondes appel, std::size_t octets, Nanosecondes creneau) {
    const Nanosecondes premier = std::max(appel + kAttenteDuPremierCreneau, libre_);
    libre_ = premier + static_cast<Nanosecondes>(octets) * creneau;
    if (modele_ == Modele::immediate) {
        return {premier, appel};
    }
    const Nanosecondes enTampon = static_cast<Nanosecondes>(std::min(octets, kTamponDEmission));
    return {premier, std::max(appel, libre_ - enTampon * creneau)};
}

} // namespace d2xx
