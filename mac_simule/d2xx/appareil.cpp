#include "mac_simule/d2xx/appareil.hpp"

#include "mac_simule/d2xx/etat.hpp"

namespace d2xx {

Appareil& Appareil::unique() {
    static Appareil* const appareil = new Appareil;
    return *appareil;
}

Statut Appareil::ouvrir(std::int32_t rang, FT_HANDLE& poignee) {
    const std::scoped_lock garde(verrou_);
    const std::string racine = racineDuMac();
    const std::vector<std::string> emetteurs = emetteursBranches(racine);
    if (rang < 0 || static_cast<std::size_t>(rang) >= emetteurs.size()) {
        return introuvable;
    }
    if (session_ && session_->debranchee()) {
        session_.reset();
    }
    if (session_ || emetteurOccupe(racine)) {
        return nonOuvert;
    }
    std::unique_ptr<Depot> depot = Depot::prendre(racine);
    if (!depot) {
        return nonOuvert;
    }
    session_ = std::make_unique<Session>(emetteurs[static_cast<std::size_t>(rang)],
                                         modeleDePuce(racine), std::move(depot));
    poignee = &poignees_[ouvertures_++ % poignees_.size()];
    poignee_ = poignee;
    return reussi;
}

Statut Appareil::fermer(const void* poignee) {
    const std::scoped_lock garde(verrou_);
    if (!connait(poignee)) {
        return poigneeInconnue;
    }
    session_.reset();
    return reussi;
}

} // namespace d2xx
