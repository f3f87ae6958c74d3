// La page de l'extension DriverKit et ses vérifications, qui ne s'attendent pas l'une l'autre.
#include "app/conduite.hpp"

TEST(Extension, chaqueClicARecoitUneAlerteEtCellesQuiFinissentEnsembleNAgissentQuUneFois) {
    essai::Conduite c("extension-seule");
    // Les vérifications se comptent dans systemextensionsctl, et s'y retiennent jusqu'au fichier
    // « suite ».
    c.passerLeResultat();
    c.mac.poserOutil("/usr/bin/systemextensionsctl",
                     "cd \"${0%/usr/*}\"\necho x >>entrees\n"
                     "while [ ! -e suite ]; do sleep 0.02; done\ncat etat/extensions_systeme");
    const auto attendreEntrees = [&](std::size_t nombre) {
        return essai::attendreQue([&] { return c.mac.lire("/entrees").size() >= 2 * nombre; });
    };
    c.fermerLesAlertes();
    c.mac.poserEtat("vitesse_horloge", "20");
    c.cliquer("Ouvrir les Réglages");
    c.cliquer("J'ai terminé");
    c.cliquer("J'ai terminé");
    ASSERT_TRUE(attendreEntrees(3)) << "les vérifications silencieuses continuent pendant ce temps";
    c.mac.poser("/suite", "");
    ASSERT_TRUE(essai::attendreQue([&] { return c.alertes.size() >= 2; }));
    ASSERT_TRUE(attendreEntrees(6));
    essai::traiter();
    const std::string alerte = "Le pilote FTDI est encore activé.\nSuivez les étapes 1 à 4, puis "
                               "cliquez à nouveau sur « J'ai terminé ».\n";
    EXPECT_EQ(c.alertes, (std::vector<std::string>{alerte, alerte}));
    EXPECT_EQ(c.titre(), "Désactiver le pilote FTDI");

    c.mac.retirer("/suite");
    c.mac.retirer("/entrees");
    c.mac.poserEtat("extensions_systeme", "0 extension(s)");
    c.cliquer("J'ai terminé");
    c.cliquer("J'ai terminé");
    ASSERT_TRUE(attendreEntrees(3));
    c.mac.poser("/suite", "");
    ASSERT_TRUE(c.attendrePage("Résultat de l'analyse"));
    EXPECT_EQ(essai::compter("Pilote FTDI DriverKit désactivé par l'utilisateur"), 1);
    EXPECT_EQ(essai::compter("Diagnostic :"), 2) << "celui du départ, et un seul depuis";
    EXPECT_EQ(c.alertes.size(), 2U);
}
