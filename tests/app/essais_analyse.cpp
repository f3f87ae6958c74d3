// L'analyse et le rapport.
#include "app/conduite.hpp"

#include "actions/actions.hpp"
#include "plateforme/preferences.hpp"

using essai::Conduite;

TEST(Analyse, commenceSeuleApresUnRedemarrageDontElleOublieLaMarque) {
    Conduite c;
    const std::string cle = "redemarrageEnAttenteDepuisDemarrage";
    plateforme::ecrirePreference(cle, "un autre démarrage");
    Actions::programmerRelance();
    c.demarrer();
    ASSERT_TRUE(c.attendrePage("Résultat de l'analyse"));
    EXPECT_EQ(essai::compter("Rouvert automatiquement après le redémarrage"), 1);
    EXPECT_EQ(plateforme::lirePreference(cle), std::nullopt);
}

TEST(Analyse, leRapportSeCopiePendantQuElleCourt) {
    Conduite c;
    c.demarrer();
    c.fermerLesAlertes();
    // L'analyse attend dans sysctl que l'essai pose le fichier « suite ».
    c.mac.poserOutil("/usr/sbin/sysctl", "cd \"${0%/usr/*}\"\ntouch entree\n"
                                         "while [ ! -e suite ]; do sleep 0.02; done");
    c.cliquer("Analyser mon Mac");
    ASSERT_TRUE(essai::attendreQue([&] { return c.mac.existe("/entree"); }));
    c.mac.poserOutil("/usr/sbin/sysctl", "echo 1");
    c.cliquer("Copier le rapport pour le support");
    const std::string rapport = robot::pressePapiers();
    EXPECT_EQ(rapport.rfind("Assistant Lumivia — rapport\n\nMac : 1, puce Apple", 0), 0U)
        << rapport;
    EXPECT_NE(rapport.find("\n\nJournal :\n" + Journal::shared().lignes().front()),
              std::string::npos);
    EXPECT_EQ(robot::titre(), "Analyse en cours…");
    c.mac.poser("/suite", "");
    EXPECT_TRUE(c.attendrePage("Résultat de l'analyse"));
}
