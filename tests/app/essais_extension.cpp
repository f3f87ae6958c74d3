// La page de l'extension DriverKit et ses vérifications, qui ne s'attendent pas l'une l'autre.
#include "app/conduite.hpp"

using essai::Conduite;

namespace {

const char* const kAlerte =
    "Le pilote FTDI est encore activé.\nSuivez les étapes 1 à 4, puis cliquez "
    "à nouveau sur « J'ai terminé ».\n";

class Extension : public ::testing::Test {
protected:
    Extension() {
        c.allerAuResultat();
        c.cliquer("Continuer");
        c.fermerLesAlertes();
    }

    // Les vérifications se retiennent dans systemextensionsctl jusqu'au fichier « suite », et s'y
    // comptent.
    void retenir(const std::string& reponse) const {
        c.mac.poserOutil("/usr/bin/systemextensionsctl",
                         "racine=${0%/usr/*}\necho x >>\"$racine/entrees\"\n"
                         "while [ ! -e \"$racine/suite\" ]; do sleep 0.02; done\necho '" +
                             reponse + "'");
    }

    bool attendreEntrees(std::size_t nombre) const {
        return essai::attendreQue([&] { return c.mac.lire("/entrees").size() >= 2 * nombre; });
    }

    Conduite c{"extension-seule"};
};

} // namespace

TEST_F(Extension, chaqueClicARecoitUneAlerteEtLesVerificationsSilencieusesAucune) {
    c.mac.poserEtat("vitesse_horloge", "20");
    c.cliquer("Ouvrir les Réglages");
    retenir("com.ftdi.vcp.dext [activated enabled]");
    c.cliquer("J'ai terminé");
    c.cliquer("J'ai terminé");
    ASSERT_TRUE(attendreEntrees(3)) << "les vérifications silencieuses continuent pendant ce temps";
    c.mac.poser("/suite", "");
    ASSERT_TRUE(essai::attendreQue([&] { return c.alertes.size() >= 2; }));
    ASSERT_TRUE(attendreEntrees(6));
    essai::traiter();
    EXPECT_EQ(c.alertes, (std::vector<std::string>{kAlerte, kAlerte}));
    EXPECT_EQ(c.titre(), "Désactiver le pilote FTDI");
}

TEST_F(Extension, deuxVerificationsQuiFinissentEnsembleNAgissentQuUneFois) {
    retenir("0 extension(s)");
    c.cliquer("J'ai terminé");
    c.cliquer("J'ai terminé");
    ASSERT_TRUE(attendreEntrees(2));
    c.mac.poser("/suite", "");
    ASSERT_TRUE(c.attendrePage("Résultat de l'analyse"));
    EXPECT_EQ(c.compter("Pilote FTDI DriverKit désactivé par l'utilisateur"), 1);
    EXPECT_EQ(c.compter("Diagnostic :"), 2) << "celui du départ, et un seul depuis";
    EXPECT_TRUE(c.alertes.empty());
}
