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

const char* const kOccupe =
    "Test impossible\nImpossible d'ouvrir l'émetteur. Fermez votre logiciel lumière (il peut occuper "
    "l'émetteur), débranchez et rebranchez le câble USB, puis réessayez.\n";

} // namespace

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

TEST_F(Projecteur, unEmetteurOccupeSeDitEtSeReessaie) {
    c.mac.poserEtat("emetteur_occupe", "");
    c.cliquer("Allumer");
    EXPECT_EQ(c.alertes, std::vector<std::string>{kOccupe});
    EXPECT_EQ(c.compter("FT_Open : statut 3"), 1);
    EXPECT_EQ(c.compter("Test DMX"), 0);
    c.mac.retirer("/etat/emetteur_occupe");
    c.cliquer("Allumer");
    EXPECT_EQ(c.compter("Test DMX : plein"), 1);
    EXPECT_EQ(c.alertes.size(), 1U);
}

TEST_F(Projecteur, repondreSansAvoirRienEnvoyeNOuvreRien) {
    c.cliquer("Oui");
    EXPECT_EQ(c.titre(), "Tout fonctionne 🎉");
    EXPECT_EQ(c.compter("FT_Open"), 0);
    EXPECT_EQ(c.compter("Test réussi (confirmé par l'utilisateur)"), 1);
}

TEST_F(Projecteur, leGuideSuitLeLogicielChoisi) {
    c.cliquer("Oui");
    auto* menu = c.fenetre().contenu()->findChild<QComboBox*>();
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->count(), 12);
    EXPECT_EQ(c.consigne().rfind("Chataigne gère", 0), 0U) << c.consigne();
    menu->setCurrentIndex(11);
    emit menu->activated(11);
    EXPECT_EQ(c.consigne().rfind("Dans les réglages DMX de votre logiciel", 0), 0U);
}
