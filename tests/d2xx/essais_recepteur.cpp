// Le récepteur, sur des événements choisis.
#include "mac_simule/d2xx/recepteur.hpp"

#include <gtest/gtest.h>
#include <vector>

using namespace d2xx;

namespace {

constexpr Ligne dmx{.debit = 250'000, .bits = 8, .arrets = 2, .parite = 0, .flux = 0};
constexpr Nanosecondes milliseconde = microsecondes(1000);

struct Envoi {
    Nanosecondes rupture = microsecondes(200);
    Nanosecondes marque = microsecondes(125);
    std::size_t creneaux = 513;
    std::uint8_t codeDepart = 0;
    std::uint8_t niveau = 255;
    Ligne ligne = dmx;
};

// Pose la trame à cet instant ; rend la fin de son dernier créneau.
Nanosecondes poser(Recepteur& recepteur, Nanosecondes instant, const Envoi& envoi = {}) {
    std::vector<std::uint8_t> octets(envoi.creneaux, envoi.niveau);
    if (!octets.empty()) {
        octets[0] = envoi.codeDepart;
    }
    recepteur.rupture(instant);
    recepteur.marque(instant + envoi.rupture);
    recepteur.octets(instant + envoi.rupture + envoi.marque, envoi.ligne, octets);
    return instant + envoi.rupture + envoi.marque +
           static_cast<Nanosecondes>(envoi.creneaux) * envoi.ligne.creneau();
}

// Une trame absente n'a pas de rupture : elle n'est jamais correcte.
Verdict verdict(const std::optional<Trame>& trame) {
    return trame.value_or(Trame{}).verdict();
}

} // namespace

TEST(Recepteur, ChaqueLimiteEstJugeeAuBordPres) {
    const std::vector<std::pair<Envoi, Verdict>> cas{
        {{}, Verdict::correct},
        {{.rupture = 92'000}, Verdict::correct},
        {{.rupture = 91'999}, Verdict::ruptureEmetteur},
        {{.rupture = 87'999}, Verdict::ruptureCourte},
        {{.marque = 12'000}, Verdict::correct},
        {{.marque = 11'999}, Verdict::marqueEmetteur},
        {{.marque = 7'999}, Verdict::marqueCourte},
        {{.creneaux = 512}, Verdict::nombreDeCreneaux},
        {{.creneaux = 514}, Verdict::nombreDeCreneaux},
        {{.creneaux = 0}, Verdict::nombreDeCreneaux},
        {{.codeDepart = 1}, Verdict::codeDepart},
        {{.ligne = {230'400, 8, 2, 0, 0}}, Verdict::ligneMalReglee},
        {{.ligne = {250'000, 7, 2, 0, 0}}, Verdict::ligneMalReglee},
        {{.ligne = {250'000, 8, 0, 0, 0}}, Verdict::ligneMalReglee},
        {{.ligne = {250'000, 8, 2, 1, 0}}, Verdict::ligneMalReglee},
        {{.ligne = {250'000, 8, 2, 0, 0x0100}}, Verdict::ligneMalReglee},
        {{.ligne = {}}, Verdict::ligneMalReglee},
    };
    for (std::size_t rang = 0; rang < cas.size(); ++rang) {
        Recepteur recepteur;
        const Nanosecondes fin = poser(recepteur, 0, cas[rang].first);
        EXPECT_EQ(verdict(recepteur.fin(fin + 1000)), cas[rang].second) << rang;
    }
}

TEST(Recepteur, UneRuptureTropTotCoupeLaTrameEtTropTardPerdLeSignal) {
    for (const Nanosecondes ecart : {0, 1}) {
        Recepteur recepteur;
        const Nanosecondes fin = poser(recepteur, 0);
        EXPECT_EQ(verdict(recepteur.rupture(fin - ecart)),
                  ecart == 0 ? Verdict::correct : Verdict::trameCoupee);
        Recepteur espace;
        poser(espace, 0);
        EXPECT_EQ(verdict(espace.fin(poser(espace, (1000 + ecart) * milliseconde))),
                  ecart == 0 ? Verdict::correct : Verdict::rupturesEspacees);
    }
}
