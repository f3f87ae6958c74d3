// Les pages du retrait. L'outil « open » de ces Mac n'ouvre pas de Terminal : c'est l'essai qui
// dépose le résultat, au moment qu'il choisit.
#include "app/conduite.hpp"

#include "actions/actions.hpp"
#include "plateforme/preferences.hpp"

using essai::Conduite;

namespace {

const std::string kReussite = "A system reboot is required\nsauvegarde : /x\n";

class Retrait : public ::testing::Test {
protected:
    Retrait() {
        c.mac.poserOutil("/usr/bin/open", "exit 0");
        c.mac.poserEtat("vitesse_horloge", "20");
        c.passerLeResultat();
    }

    // Ce que fait le script : met de côté, puis laisse son résultat d'un coup.
    void finir(const std::string& sortie) const {
        c.mac.retirer(Diagnostic::cheminD2xxHelper);
        c.mac.poser(Actions::fichierResultat(), sortie);
    }

    Conduite c{"complet"};
};

} // namespace

TEST_F(Retrait, sansReconstructionNiExtensionFinitParUneAnalyse) {
    c.mac.poserEtat("kexts_charges", "");
    c.mac.poserEtat("extensions_systeme", "");
    c.cliquer("Retour");
    ASSERT_TRUE(c.attendrePage("Résultat de l'analyse"));
    c.cliquer("Continuer");
    c.mac.poser(Actions::dossier(), "un fichier"); // le script ne s'écrira pas
    c.cliquer("Retirer");
    c.mac.retirer(Actions::dossier());
    c.cliquer("Réessayer");
    c.cliquer("Retirer");
    finir("sauvegarde : /x\n");
    ASSERT_TRUE(c.attendrePage("Résultat de l'analyse"));
    EXPECT_FALSE(plateforme::lirePreference("redemarrageEnAttenteDepuisDemarrage").has_value());
}

TEST_F(Retrait, dixRecommencerNeLisentLeResultatQuUneFoisMemeSansImages) {
    c.mac.retirer("/Applications/Assistant Lumivia.app/Contents/Resources");
    c.cliquer("Retirer");
    for (int i = 0; i < 10; ++i) {
        c.cliquer("Recommencer");
    }
    finir(kReussite);
    ASSERT_TRUE(c.attendrePage("Désactiver le pilote FTDI"));
    EXPECT_EQ(essai::compter("Résultat du retrait (ok) :\n" + kReussite), 1);
}

TEST_F(Retrait, renonceApresDixMinutes) {
    c.mac.poserEtat("vitesse_horloge", "200");
    const auto debut = std::chrono::steady_clock::now();
    c.cliquer("Retirer");
    ASSERT_TRUE(c.attendrePage("Le retrait n'a pas abouti"));
    const std::chrono::duration<double> dure = std::chrono::steady_clock::now() - debut;
    EXPECT_GE(dure.count() * 200, 600);
    EXPECT_EQ(essai::compter("Résultat du retrait"), 0);
}
