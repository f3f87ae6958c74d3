// La page de l'extension DriverKit et ses vérifications, qui ne s'attendent pas l'une l'autre.
#include "app/conduite.hpp"

namespace {

// Les vérifications se comptent dans systemextensionsctl, et s'y retiennent jusqu'au fichier «
// suite ».
class Extension : public ::testing::Test {
protected:
    Extension() {
        c.allerAuResultat();
        c.mac.poserOutil("/usr/bin/systemextensionsctl",
                         "cd \"${0%/usr/*}\"\necho x >>entrees\n"
                         "while [ ! -e suite ]; do sleep 0.02; done\ncat etat/extensions_systeme");
        c.fermerLesAlertes();
    }

    bool attendreEntrees(std::size_t nombre) const {
        return essai::attendreQue([&] { return c.mac.lire("/entrees").size() >= 2 * nombre; });
    }

    // Deux clics, pendant que les vérifications silencieuses continuent.
    void verifierDeuxFois() const {
        c.mac.poserEtat("vitesse_horloge", "20");
        c.cliquer("Continuer");
        c.cliquer("Ouvrir les Réglages");
        c.cliquer("J'ai terminé");
        c.cliquer("J'ai terminé");
        ASSERT_TRUE(attendreEntrees(3));
    }

    essai::Conduite c{"extension-seule"};
};

} // namespace

TEST_F(Extension, unOutilQuiNeFinitPasNEnRetientQueTrente) {
    c.mac.poserEtat("vitesse_horloge", "400");
    c.cliquer("Continuer");
    ASSERT_TRUE(attendreEntrees(30));
    QTest::qWait(500); // cent battements
    EXPECT_EQ(c.mac.lire("/entrees").size(), 2 * 30U);
    c.mac.poserEtat("extensions_systeme", "0 extension(s)");
    c.mac.poser("/suite", "");
    EXPECT_TRUE(c.attendrePage("Résultat de l'analyse"));
}

TEST_F(Extension, chaqueClicRecoitSonAlerte) {
    verifierDeuxFois();
    c.mac.poser("/suite", "");
    ASSERT_TRUE(essai::attendreQue([&] { return c.alertes.size() >= 2; }));
    ASSERT_TRUE(attendreEntrees(6));
    essai::traiter();
    const std::string alerte = "Le pilote FTDI est encore activé.\nSuivez les étapes 1 à 4, puis "
                               "cliquez à nouveau sur « J'ai terminé ».\n";
    EXPECT_EQ(c.alertes, (std::vector<std::string>{alerte, alerte}));
    EXPECT_EQ(robot::titre(), "Désactiver le pilote FTDI");
}

TEST_F(Extension, cellesQuiFinissentEnsembleNAgissentQuUneFois) {
    verifierDeuxFois();
    c.mac.poserEtat("extensions_systeme", "0 extension(s)");
    c.mac.poser("/suite", "");
    ASSERT_TRUE(c.attendrePage("Résultat de l'analyse"));
    EXPECT_EQ(essai::compter("Pilote FTDI DriverKit désactivé par l'utilisateur"), 1);
    EXPECT_EQ(essai::compter("Diagnostic :"), 2) << "celui du départ, et un seul depuis";
    EXPECT_EQ(c.alertes.size(), 0U);
}
