#include "mac_simule/d2xx/ouverture.hpp"

namespace d2xx {

Ouverture::Ouverture(const std::string& emetteur, Puce::Modele modele, Depot depot)
    : branchement_(emetteur), puce_(modele), depot_(std::move(depot)) {
    depot_.deposer(compteur_.bilan());
    releve_.noter(maintenant(), "open", 0);
}

Ouverture::~Ouverture() {
    const Nanosecondes instant = maintenant();
    compter(recepteur_.fin(instant));
    releve_.noter(instant, "close", 0);
}

Statut Ouverture::regler(const Ligne& voulue) {
    const std::optional<Nanosecondes> instant = commander();
    if (!instant) {
        return erreurES;
    }
    if (voulue.debit != ligne_.debit) {
        releve_.noter(*instant, "baud", voulue.debit);
    }
    ligne_ = voulue;
    return reussi;
}

Statut Ouverture::basculer(bool enBreak) {
    const std::optional<Nanosecondes> instant = commander();
    if (!instant) {
        releve_.noter(maintenant(), "break_fail", erreurES);
        return erreurES;
    }
    releve_.noter(*instant, enBreak ? "break_on" : "break_off", 0);
    if (enBreak) {
        compter(recepteur_.commencerBreak(*instant));
    } else {
        recepteur_.finirBreak(*instant);
    }
    return reussi;
}

Statut Ouverture::ecrire(std::span<const std::uint8_t> octets) {
    const Nanosecondes appel = maintenant();
    if (debranchee()) {
        releve_.noter(appel, "write_fail", erreurES);
        return erreurES;
    }
    releve_.noterEcriture(appel, octets);
    const Puce::Ecriture ecriture = puce_.ecrire(appel, octets.size(), ligne_.creneau());
    recepteur_.octets(ecriture.premierCreneau, ligne_, octets);
    attendre(ecriture.retour);
    releve_.noterRetour(maintenant(), octets.size());
    return reussi;
}

std::optional<Nanosecondes> Ouverture::commander() {
    if (debranchee()) {
        return std::nullopt;
    }
    const Nanosecondes effet = puce_.commande(maintenant());
    attendre(effet);
    return effet;
}

void Ouverture::compter(const std::optional<Trame>& trame) {
    if (trame) {
        compteur_.compter(*trame);
        depot_.deposer(compteur_.bilan());
    }
}

} // namespace d2xx
