#include "mac_simule/d2xx/session.hpp"

#include "mac_simule/d2xx/horloge.hpp"

namespace d2xx {

namespace {
// Lire le temps de calcul est un appel système : une fois par seconde suffit.
constexpr unsigned ecrituresEntreDeuxCalculs = 32;
} // namespace

Session::Session(const std::string& emetteur, Puce::Modele modele, std::unique_ptr<Depot> depot)
    : guetteur_(emetteur), puce_(modele), depot_(std::move(depot)), releve_(Releve::duProcessus()) {
    if (releve_ != nullptr && !releve_->etendre()) {
        releve_ = nullptr;
    }
    depot_->deposer(compteur_.bilan(), true);
    noter(maintenant(), "open", 0);
}

Session::~Session() {
    const Nanosecondes instant = maintenant();
    if (const std::optional<Trame> derniere = recepteur_.fin(instant)) {
        compteur_.compter(*derniere);
    }
    depot_->deposer(compteur_.bilan(), false);
    noter(instant, "close", 0);
    if (releve_ != nullptr) {
        releve_->raccourcir();
    }
}

Statut Session::regler(const Ligne& voulue) {
    const std::optional<Nanosecondes> instant = commander();
    if (!instant) {
        return erreurES;
    }
    if (voulue.debit != ligne_.debit) {
        noter(*instant, "baud", voulue.debit);
    }
    ligne_ = voulue;
    return reussi;
}

Statut Session::commencerRupture() {
    const std::optional<Nanosecondes> instant = commander();
    if (!instant) {
        noter(maintenant(), "break_fail", erreurES);
        return erreurES;
    }
    noter(*instant, "break_on", 0);
    deposer(recepteur_.rupture(*instant));
    return reussi;
}

Statut Session::finirRupture() {
    const std::optional<Nanosecondes> instant = commander();
    if (!instant) {
        noter(maintenant(), "break_fail", erreurES);
        return erreurES;
    }
    noter(*instant, "break_off", 0);
    recepteur_.marque(*instant);
    return reussi;
}

Statut Session::ecrire(std::span<const std::uint8_t> octets) {
    const Nanosecondes appel = maintenant();
    if (debranchee()) {
        noter(appel, "write_fail", erreurES);
        return erreurES;
    }
    if (releve_ != nullptr) {
        releve_->noterEcriture(appel, octets);
    }
    const Puce::Ecriture ecriture = puce_.ecrire(appel, octets.size(), ligne_.creneau());
    recepteur_.octets(ecriture.premierCreneau, ligne_, octets);
    attendre(ecriture.retour);
    if (releve_ != nullptr) {
        const Nanosecondes retour = maintenant();
        noter(retour, "write_end", octets.size());
        if (++ecritures_ % ecrituresEntreDeuxCalculs == 0) {
            releve_->noterCalcul(retour);
        }
    }
    return reussi;
}

std::optional<Nanosecondes> Session::commander() {
    if (debranchee()) {
        return std::nullopt;
    }
    const Nanosecondes effet = puce_.commande(maintenant());
    attendre(effet);
    return effet;
}

void Session::noter(Nanosecondes instant, std::string_view evenement, std::uint64_t valeur) {
    if (releve_ != nullptr) {
        releve_->noter(instant, evenement, valeur);
    }
}

void Session::deposer(const std::optional<Trame>& trame) {
    if (trame) {
        compteur_.compter(*trame);
        depot_->deposer(compteur_.bilan(), true);
    }
}

} // namespace d2xx
