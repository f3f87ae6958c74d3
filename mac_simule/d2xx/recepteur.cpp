#include "mac_simule/d2xx/recepteur.hpp"

#include <algorithm>

namespace d2xx {

namespace {
constexpr std::size_t creneauxAttendus = 513;
constexpr Nanosecondes ruptureRecepteur = microsecondes(88);
constexpr Nanosecondes ruptureEmetteur = microsecondes(92);
constexpr Nanosecondes marqueRecepteur = microsecondes(8);
constexpr Nanosecondes marqueEmetteur = microsecondes(12);
constexpr Nanosecondes intervalleMaximal = microsecondes(1'000'000);
} // namespace

Verdict Trame::verdict() const {
    if (!ligneDmx) {
        return Verdict::ligneMalReglee;
    }
    if (rupture < ruptureRecepteur) {
        return Verdict::ruptureCourte;
    }
    if (creneaux > 0 && marque < marqueRecepteur) {
        return Verdict::marqueCourte;
    }
    if (coupee) {
        return Verdict::trameCoupee;
    }
    if (creneaux != creneauxAttendus) {
        return Verdict::nombreDeCreneaux;
    }
    if (codeDepart != 0) {
        return Verdict::codeDepart;
    }
    if (intervalle > intervalleMaximal) {
        return Verdict::rupturesEspacees;
    }
    if (rupture < ruptureEmetteur) {
        return Verdict::ruptureEmetteur;
    }
    return marque < marqueEmetteur ? Verdict::marqueEmetteur : Verdict::correct;
}

std::optional<Trame> Recepteur::rupture(Nanosecondes instant) {
    if (enRupture_) {
        return std::nullopt;
    }
    const std::optional<Trame> finie = terminer(instant);
    trame_.emplace();
    trame_->debut = instant;
    trame_->intervalle = instant - rupturePrecedente_.value_or(instant);
    rupturePrecedente_ = instant;
    enRupture_ = true;
    return finie;
}

void Recepteur::marque(Nanosecondes instant) {
    if (enRupture_) {
        trame_->rupture = instant - trame_->debut;
        enRupture_ = false;
    }
}

void Recepteur::octets(Nanosecondes premier, const Ligne& ligne,
                       std::span<const std::uint8_t> creneaux) {
    // Sans rupture avant eux, des octets ne sont pas une trame.
    if (!trame_ || enRupture_ || creneaux.empty()) {
        return;
    }
    Trame& trame = *trame_;
    trame.ligneDmx = trame.ligneDmx && ligne.estDmx();
    trame.fin = premier + static_cast<Nanosecondes>(creneaux.size()) * ligne.creneau();
    std::span<const std::uint8_t> circuits = creneaux;
    if (trame.creneaux == 0) {
        trame.marque = premier - (trame.debut + trame.rupture);
        trame.codeDepart = creneaux.front();
        circuits = creneaux.subspan(1);
    }
    trame.creneaux += creneaux.size();
    for (const std::uint8_t niveau : circuits) {
        trame.niveauMin = std::min(trame.niveauMin, niveau);
        trame.niveauMax = std::max(trame.niveauMax, niveau);
    }
}

std::optional<Trame> Recepteur::fin(Nanosecondes instant) {
    enRupture_ = false;
    return terminer(instant);
}

std::optional<Trame> Recepteur::terminer(Nanosecondes instant) {
    std::optional<Trame> finie = trame_;
    trame_.reset();
    if (finie) {
        finie->coupee = instant < finie->fin;
    }
    return finie;
}

} // namespace d2xx
