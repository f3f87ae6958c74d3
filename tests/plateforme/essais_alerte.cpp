// Ce qu'une alerte retient, dans les deux adaptateurs.

#include "mac_simule/robot/regard.hpp"
#include "plateforme/alerte.hpp"
#include "plateforme/application.hpp"
#include "plateforme/boucle.hpp"

#include <cstdlib>
#include <gtest/gtest.h>

namespace {

// Une alerte ouverte par une tâche, une tâche derrière elle, et un minuteur.
struct Attente {
    std::string suite;
    std::unique_ptr<plateforme::Minuteur> minuteur;
    int battements = 0;
    int battementsAvant = 0;
    int regards = 0;

    void battre() {
        if (++battements == 2) {
            plateforme::executerSurPrincipal([this] {
                suite += "ouverte ";
                plateforme::alerte("message", "information");
                suite += "fermée ";
            });
            plateforme::executerSurPrincipal([this] { finir(); });
        }
    }

    void regarder() {
        if (!robot::alerteOuverte()) {
            return;
        }
        if (++regards == 1) {
            battementsAvant = battements;
        } else if (regards == 60) {
            suite += "regardée ";
            EXPECT_EQ(battements, battementsAvant);
            robot::presser("");
        }
    }

    // Sur un Mac, terminer ne revient pas ici : le verdict est celui du processus.
    void finir() const {
        EXPECT_EQ(suite, "ouverte regardée fermée ");
        std::_Exit(testing::Test::HasFailure() ? EXIT_FAILURE : EXIT_SUCCESS);
    }
};

} // namespace

TEST(Alerte, retientLesTachesSuivantesEtLesMinuteurs) {
    Attente attente;
    plateforme::definirDelegue({[&] {
                                    robot::surveiller([&] { attente.regarder(); });
                                    attente.minuteur = std::make_unique<plateforme::Minuteur>(
                                        0.02, [&] { attente.battre(); });
                                },
                                [] { return true; }});
    plateforme::executerApplication();
    FAIL() << "l'application a fini d'elle-même";
}
