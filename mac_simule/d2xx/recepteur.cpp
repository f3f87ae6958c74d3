#include "mac_simule/d2xx/recepteur.hpp"

#include <algorithm>
#include <array>
#include <utility>

namespace d2xx {

Verdict Trame::verdict() const {
    const std::array<std::pair<bool, Verdict>, 9> defauts{{
        {!ligneDmx, Verdict::ligneMalReglee},
        {dureeBreak < microsecondes(88), Verdict::breakCourt},
        {creneaux > 0 && marque < microsecondes(8), Verdict::marqueCourte},
        {coupee, Verdict::trameCoupee},
        {creneaux != 513, Verdict::nombreDeCreneaux},
        {codeDepart != 0, Verdict::codeDepart},
        {intervalle > microsecondes(1'000'000), Verdict::breaksEspaces},
        {dureeBreak < microsecondes(92), Verdict::breakEmetteur},
        {marque < microsecondes(12), Verdict::marqueEmetteur},
    }};
    const auto* const premier = std::ranges::find(defauts, true, &std::pair<bool, Verdict>::first);
    return premier == defauts.end() ? Verdict::correct : premier->second;
}

std::optional<Trame> Recepteur::commencerBreak(Nanosecondes instant) {
    if (enBreak_) {
        return std::nullopt;
    }
    const std::optional<Trame> finie = fin(instant);
    trame_.emplace();
    trame_->debut = instant;
    trame_->intervalle = instant - breakPrecedent_.value_or(instant);
    breakPrecedent_ = instant;
    enBreak_ = true;
    return finie;
}

void Recepteur::finirBreak(Nanosecondes instant) {
    if (enBreak_) {
        trame_->dureeBreak = instant - trame_->debut;
        enBreak_ = false;
    }
}

void Recepteur::octets(Nanosecondes premier, const Ligne& ligne,
                       std::span<const std::uint8_t> creneaux) {
    // Sans BREAK avant eux, des octets ne sont pas une trame.
    if (!trame_ || enBreak_ || creneaux.empty()) {
        return;
    }
    Trame& trame = *trame_;
    trame.ligneDmx = trame.ligneDmx && ligne.estDmx();
    trame.fin = premier + static_cast<Nanosecondes>(creneaux.size()) * ligne.creneau();
    std::span<const std::uint8_t> canaux = creneaux;
    if (trame.creneaux == 0) {
        trame.marque = premier - (trame.debut + trame.dureeBreak);
        trame.codeDepart = creneaux.front();
        canaux = creneaux.subspan(1);
    }
    trame.creneaux += creneaux.size();
    for (const std::uint8_t niveau : canaux) {
        trame.niveauMin = std::min(trame.niveauMin, niveau);
        trame.niveauMax = std::max(trame.niveauMax, niveau);
    }
}

std::optional<Trame> Recepteur::fin(Nanosecondes instant) {
    enBreak_ = false;
    std::optional<Trame> finie = std::exchange(trame_, std::nullopt);
    if (finie) {
        finie->coupee = instant < finie->fin;
    }
    return finie;
}

} // namespace d2xx
