// Le test du projecteur, sur la bibliothèque D2XX simulée, chargée pour de bon.
#include "app/conduite.hpp"

using essai::Conduite;

namespace {

class Projecteur : public ::testing::Test {
protected:
    Projecteur() {
        c.allerAuResultat();
        c.cliquer("Continuer");
        c.fermerLesAlertes();
    }

    Conduite c{"pret"};
};

} // namespace

TEST_F(Projecteur, unEmetteurOccupeSeDitEtSeReessaie) {
    c.mac.poserEtat("emetteur_occupe", "");
    c.cliquer("Allumer");
    EXPECT_EQ(c.compter("Test DMX"), 0);
    c.mac.retirer("/etat/emetteur_occupe");
    c.cliquer("Allumer");
    EXPECT_EQ(c.compter("Test DMX : plein"), 1);
    ASSERT_EQ(c.alertes.size(), 1U);
    EXPECT_EQ(c.alertes[0].rfind("Test impossible\nImpossible d'ouvrir l'émetteur.", 0), 0U);
}

TEST_F(Projecteur, chaqueMotifSeNoteEtLaSessionNeSouvreQuUneFois) {
    c.cliquer("Allumer");
    c.cliquer("Clignoter");
    c.cliquer("Éteindre");
    EXPECT_EQ(c.compter("FT_Open : statut 0"), 1);
    EXPECT_EQ(c.compter("Test DMX : plein"), 1);
    EXPECT_EQ(c.compter("Test DMX : clignotant"), 1);
    EXPECT_EQ(c.compter("Test DMX : noir"), 1);
    c.cliquer("Non");
    EXPECT_EQ(c.titre(), "Le projecteur ne réagit pas");
    EXPECT_EQ(c.compter("Test échoué (le projecteur ne réagit pas)"), 1);
    EXPECT_EQ(c.parDefaut(), "Refaire le test");
    c.cliquer("Refaire le test");
    c.cliquer("Allumer");
    EXPECT_EQ(c.compter("FT_Open : statut 0"), 2);
}

TEST_F(Projecteur, repondreSansAvoirRienEnvoyeNOuvreRienEtMeneAuGuide) {
    c.cliquer("Oui");
    EXPECT_EQ(c.titre(), "Tout fonctionne 🎉");
    EXPECT_EQ(c.compter("FT_Open"), 0);
    EXPECT_EQ(c.compter("Test réussi (confirmé par l'utilisateur)"), 1);
    auto* menu = c.fenetre().contenu()->findChild<QComboBox*>();
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(c.consigne().rfind("Chataigne gère", 0), 0U) << c.consigne();
    menu->setCurrentIndex(11);
    emit menu->activated(11);
    EXPECT_EQ(c.consigne().rfind("Dans les réglages DMX de votre logiciel", 0), 0U);
}
