// Des gestes répétés longtemps, dans la fenêtre visible : après un échauffement, rien ne grandit.
#include "app/conduite.hpp"

#include "actions/actions.hpp"
#include "commun/ressources.hpp"

using essai::Conduite;
using essai::Ressources;

namespace {

// Le journal garde exprès toutes ses lignes, pour le rapport ; en kilooctets.
long tailleDuJournal() {
    long octets = 0;
    for (const std::string& ligne : Journal::shared().lignes()) {
        octets += static_cast<long>(sizeof ligne + ligne.capacity());
    }
    return octets / 1024;
}

void repeter(int tours, const std::function<void()>& geste) {
    const auto tourner = [&](int fois) {
        for (int i = 0; i < fois && !::testing::Test::HasFailure(); ++i) {
            geste();
        }
    };
    tourner(tours / 10); // le temps que chaque tampon et chaque cache prenne sa taille
    const Ressources avant;
    const long journalAvant = tailleDuJournal();
    tourner(tours);
    // Le fil d'une analyse remet son résultat un instant avant de finir.
    EXPECT_TRUE(essai::attendre([&] { return Ressources().memesTenues(avant); }));
    // Deux centièmes : l'ordre de ce que l'allocateur garde éparpillé. Une vue ou une image oubliée
    // par tour en ferait dix fois plus. Le tableau du journal, lui, double quand il est plein.
    EXPECT_LE(Ressources().memoire,
              avant.memoire + avant.memoire / 50 + 2 * (tailleDuJournal() - journalAvant));
}

} // namespace

TEST(Endurance, DISABLED_analysesEtPagesIllustrees) {
    Conduite c("complet");
    c.allerAuResultat();
    repeter(400, [&] {
        c.cliquer("Continuer");
        c.cliquer("Retour");
        ASSERT_TRUE(c.attendrePage("Résultat de l'analyse"));
    });
}

TEST(Endurance, DISABLED_sessionsEtMotifs) {
    Conduite c;
    c.passerLeResultat();
    repeter(200, [&] {
        for (int i = 0; i < 50; ++i) {
            for (const char* motif : {"Allumer", "Clignoter", "Éteindre"}) {
                c.cliquer(motif);
            }
        }
        for (int i = 0; i < 25; ++i) {
            c.cliquer("Non"); // ferme la session
            c.cliquer("Refaire le test");
        }
    });
}

TEST(Endurance, DISABLED_scriptsEtRelances) {
    Conduite c;
    c.mac.poserOutil("/usr/bin/open", "exit 0");
    repeter(2000, [&] {
        ASSERT_TRUE(Actions::lancerRetraitDansTerminal(true));
        Actions::programmerRelance();
        ASSERT_TRUE(Actions::annulerRelance());
    });
}

// Cinq minutes devant la page de l'extension, sur un Mac où chaque vérification prend trois
// secondes.
TEST(Endurance, DISABLED_pageDeLExtensionSurUnMacLent) {
    Conduite c("extension-seule");
    c.allerAuResultat();
    c.mac.poserOutil("/usr/bin/systemextensionsctl",
                     "sleep 3; cat \"${0%/usr/*}/etat/extensions_systeme\"");
    c.cliquer("Continuer");
    QTest::qWait(10'000);
    const Ressources avant;
    for (int minute = 0; minute < 5; ++minute) {
        QTest::qWait(60'000);
        // Une vérification qui commence ou finit à cet instant en fait une de plus ou de moins.
        EXPECT_LE(Ressources().fils, avant.fils + 2);
        EXPECT_LE(Ressources().descripteurs, avant.descripteurs + 4);
    }
}
