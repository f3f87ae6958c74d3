// Le récepteur, sur des événements choisis.
#include "mac_simule/d2xx/recepteur.hpp"

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

using namespace d2xx;

namespace {

constexpr Ligne kDmx{.debit = 250'000, .bits = 8, .arrets = 2, .parite = 0, .flux = 0};

struct Envoi {
    Nanosecondes dureeBreak = microsecondes(200);
    Nanosecondes marque = microsecondes(125);
    std::size_t creneaux = 513;
    std::uint8_t codeDepart = 0;
    Ligne ligne = kDmx;
};

// Pose la trame à cet instant ; rend la fin de son dernier créneau.
Nanosecondes poser(Recepteur& recepteur, Nanosecondes instant, const Envoi& envoi = {}) {
    std::vector<std::uint8_t> octets(envoi.creneaux, 255);
    std::fill_n(octets.begin(), std::min<std::size_t>(octets.size(), 1), envoi.codeDepart);
    recepteur.commencerBreak(instant);
    recepteur.finirBreak(instant + envoi.dureeBreak);
    recepteur.octets(instant + envoi.dureeBreak + envoi.marque, envoi.ligne, octets);
    return instant + envoi.dureeBreak + envoi.marque +
           static_cast<Nanosecondes>(envoi.creneaux) * envoi.ligne.creneau();
}

// Une trame absente n'a pas de BREAK : elle n'est jamais correcte.
Verdict verdict(const std::optional<Trame>& trame) {
    return trame.value_or(Trame{}).verdict();
}

} // namespace

TEST(Recepteur, chaqueLimiteEstJugeeAuBordPres) {
    const std::vector<std::pair<Envoi, Verdict>> cas{
        {{}, Verdict::correct},
        {{.dureeBreak = 92'000}, Verdict::correct},
        {{.dureeBreak = 91'999}, Verdict::breakEmetteur},
        {{.dureeBreak = 87'999}, Verdict::breakCourt},
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

TEST(Recepteur, unBreakVientNiTropTotNiTropTard) {
    for (const Nanosecondes ecart : {0, 1}) {
        Recepteur recepteur;
        const Nanosecondes fin = poser(recepteur, 0);
        EXPECT_EQ(verdict(recepteur.commencerBreak(fin - ecart)),
                  ecart == 0 ? Verdict::correct : Verdict::trameCoupee);
        Recepteur espace;
        poser(espace, 0);
        EXPECT_EQ(verdict(espace.fin(poser(espace, microsecondes(1000 * (1000 + ecart))))),
                  ecart == 0 ? Verdict::correct : Verdict::breaksEspaces);
    }
}
