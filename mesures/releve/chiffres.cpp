#include "mesures/releve/chiffres.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <optional>

namespace releve {

namespace {

using Serie = std::vector<double>;

constexpr double kRien = std::numeric_limits<double>::quiet_NaN();
constexpr std::int64_t kMisEnRoute = 1'000'000'000;
constexpr std::int64_t kAucune = std::numeric_limits<std::int64_t>::min(); // avant tout instant
constexpr std::int64_t kAttenteDuPremierCreneau = 125'000;
constexpr std::int64_t kBitsParCreneau = 11;

double microsecondes(std::int64_t duree) {
    return static_cast<double>(duree) / 1000;
}

double centile(Serie serie, double part) {
    if (serie.empty()) {
        return kRien;
    }
    std::ranges::sort(serie);
    const double rang = std::ceil(part * static_cast<double>(serie.size()));
    return serie[static_cast<std::size_t>(std::max(rang, 1.0)) - 1];
}

double moyenne(const Serie& serie) {
    return std::accumulate(serie.begin(), serie.end(), 0.0) / static_cast<double>(serie.size());
}

double ecartType(const Serie& serie) {
    const double centre = moyenne(serie);
    Serie carres;
    std::ranges::transform(serie, std::back_inserter(carres),
                           [=](double valeur) { return (valeur - centre) * (valeur - centre); });
    return std::sqrt(moyenne(carres));
}

// Temps de calcul par trame, entre la première et la dernière ligne qui le donnent.
struct Calcul {
    void noter(std::uint64_t valeur, std::size_t trames) {
        if (!premier) {
            premier = {valeur, trames};
        }
        dernier = {valeur, trames};
    }

    [[nodiscard]] double parTrame() const {
        return premier && dernier.trames > premier->trames
                   ? microsecondes(static_cast<std::int64_t>(dernier.valeur - premier->valeur)) /
                         static_cast<double>(dernier.trames - premier->trames)
                   : kRien;
    }

    struct Point {
        std::uint64_t valeur;
        std::size_t trames;
    };

    std::optional<Point> premier;
    Point dernier{};
};

// Suit la ligne d'un événement à l'autre.
class Suivi {
public:
    void suivre(const Evenement& evenement);
    [[nodiscard]] Chiffres chiffres() const;

private:
    void commencerTrame(std::int64_t instant);
    void finirBreak(std::int64_t instant);
    void ecrire(std::int64_t instant, std::uint64_t octets);

    [[nodiscard]] bool compte(std::int64_t instant) const {
        return debut_ && instant >= *debut_ + kMisEnRoute;
    }

    std::optional<std::int64_t> debut_; // premier BREAK du relevé
    std::int64_t break_ = kAucune;      // dernier BREAK de la session
    bool ecritureAttendue_ = false;
    std::int64_t finDesCreneaux_ = 0;
    std::int64_t creneau_ = 44'000;
    std::size_t trames_ = 0;
    std::size_t coupees_ = 0;
    std::size_t echecs_ = 0;
    Serie periodes_;
    Serie breaks_;
    Calcul fil_;
    Calcul processus_;
};

void Suivi::suivre(const Evenement& evenement) {
    const auto& [instant, nom, valeur] = evenement;
    if (nom == "break_on") {
        commencerTrame(instant);
    } else if (nom == "break_off") {
        finirBreak(instant);
    } else if (nom == "write") {
        ecrire(instant, valeur);
    } else if (nom == "baud" && valeur > 0) {
        creneau_ = kBitsParCreneau * 1'000'000'000 / static_cast<std::int64_t>(valeur);
    } else if (nom == "cpu_thread" && compte(instant)) {
        fil_.noter(valeur, trames_);
    } else if (nom == "cpu_process" && compte(instant)) {
        processus_.noter(valeur, trames_);
    } else if (nom == "break_fail" || nom == "write_fail") {
        ++echecs_;
        ecritureAttendue_ = false;
        break_ = kAucune;
    } else if (nom == "open") {
        ecritureAttendue_ = false;
        break_ = kAucune;
    }
}

void Suivi::commencerTrame(std::int64_t instant) {
    debut_ = debut_.value_or(instant);
    coupees_ += instant < finDesCreneaux_ ? 1 : 0;
    echecs_ += ecritureAttendue_ ? 1 : 0;
    if (compte(break_)) {
        periodes_.push_back(microsecondes(instant - break_));
    }
    break_ = instant;
    ecritureAttendue_ = true;
}

void Suivi::finirBreak(std::int64_t instant) {
    if (compte(break_)) {
        breaks_.push_back(microsecondes(instant - break_));
    }
}

void Suivi::ecrire(std::int64_t instant, std::uint64_t octets) {
    finDesCreneaux_ = std::max(instant + kAttenteDuPremierCreneau, finDesCreneaux_) +
                      static_cast<std::int64_t>(octets) * creneau_;
    if (ecritureAttendue_ && compte(break_)) {
        ++trames_;
    }
    ecritureAttendue_ = false;
}

Chiffres Suivi::chiffres() const {
    Serie ecarts;
    const double mediane = centile(periodes_, 0.5);
    std::ranges::transform(periodes_, std::back_inserter(ecarts),
                           [=](double periode) { return std::abs(periode - mediane); });
    return {.trames = trames_,
            .tramesParSeconde = 1e6 / moyenne(periodes_),
            .periodeMoyenne = moyenne(periodes_),
            .periodeP99 = centile(periodes_, 0.99),
            .periodeEcartType = ecartType(periodes_),
            .gigueP99 = centile(ecarts, 0.99),
            .breakMin = centile(breaks_, 0),
            .breakP50 = centile(breaks_, 0.5),
            .coupees = coupees_,
            .echecs = echecs_,
            .calculFil = fil_.parTrame(),
            .calculProcessus = processus_.parTrame()};
}

} // namespace

Chiffres calculer(std::span<const Evenement> evenements) {
    Suivi suivi;
    for (const Evenement& evenement : evenements) {
        suivi.suivre(evenement);
    }
    return suivi.chiffres();
}

Chiffres rassembler(std::span<const Chiffres> passages) {
    const auto mediane = [&](double Chiffres::*champ) {
        Serie serie;
        for (const Chiffres& passage : passages) {
            if (!std::isnan(passage.*champ)) {
                serie.push_back(passage.*champ);
            }
        }
        return centile(serie, 0.5);
    };
    Chiffres ensemble{.tramesParSeconde = mediane(&Chiffres::tramesParSeconde),
                      .periodeMoyenne = mediane(&Chiffres::periodeMoyenne),
                      .periodeP99 = mediane(&Chiffres::periodeP99),
                      .periodeEcartType = mediane(&Chiffres::periodeEcartType),
                      .gigueP99 = mediane(&Chiffres::gigueP99),
                      .breakMin = kRien,
                      .breakP50 = mediane(&Chiffres::breakP50),
                      .calculFil = mediane(&Chiffres::calculFil),
                      .calculProcessus = mediane(&Chiffres::calculProcessus)};
    for (const Chiffres& passage : passages) {
        ensemble.trames += passage.trames;
        ensemble.coupees += passage.coupees;
        ensemble.echecs += passage.echecs;
        ensemble.breakMin = std::fmin(ensemble.breakMin, passage.breakMin);
    }
    return ensemble;
}

} // namespace releve
