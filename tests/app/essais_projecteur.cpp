// Le test du projecteur, sur la bibliothèque D2XX simulée, chargée pour de bon.
#include "app/conduite.hpp"

TEST(Projecteur, seTesteDUnEssaiRateAuGuideEtChaqueSessionNeSOuvreQuUneFois) {
    essai::Conduite c;
    c.passerLeResultat();
    c.cliquer("Non");
    EXPECT_EQ(essai::compter("FT_Open"), 0) << "répondre sans avoir rien envoyé n'ouvre rien";
    EXPECT_EQ(essai::compter("Test échoué (le projecteur ne réagit pas)"), 1);
    EXPECT_EQ(c.parDefaut(), "Refaire le test");
    c.cliquer("Refaire le test");
    c.fermerLesAlertes();
    c.mac.poserEtat("emetteur_occupe", "");
    c.cliquer("Allumer");
    EXPECT_EQ(essai::compter("Test DMX"), 0);
    ASSERT_EQ(c.alertes.size(), 1U);
    EXPECT_EQ(c.alertes[0].rfind("Test impossible\nImpossible d'ouvrir l'émetteur.", 0), 0U);
    c.mac.retirer("/etat/emetteur_occupe");
    for (const char* motif : {"Allumer", "Clignoter", "Éteindre"}) {
        c.cliquer(motif);
    }
    for (const char* note :
         {"FT_Open : statut 0", "Test DMX : plein", "Test DMX : clignotant", "Test DMX : noir"}) {
        EXPECT_EQ(essai::compter(note), 1) << note;
    }
    c.cliquer("Non");
    c.cliquer("Refaire le test");
    c.cliquer("Allumer");
    EXPECT_EQ(essai::compter("FT_Open : statut 0"), 2);
    c.cliquer("Oui");
    EXPECT_EQ(essai::compter("Test réussi (confirmé par l'utilisateur)"), 1);
    // La consigne est le dernier texte de la zone.
    const auto consigne = [&] { return c.textes().rbegin()[1]; };
    EXPECT_EQ(consigne().rfind("Chataigne gère", 0), 0U) << consigne();
    auto* menu = c.fenetre().contenu()->findChild<QComboBox*>();
    menu->setCurrentIndex(11);
    emit menu->activated(11);
    EXPECT_EQ(consigne().rfind("Dans les réglages DMX de votre logiciel", 0), 0U) << consigne();
}

TEST(Projecteur, onRepondEtOnReessaieQuandLaBibliothequeNeRepondPlus) {
    essai::Conduite c;
    c.mac.poserVariante("ecriture_retenue");
    c.passerLeResultat();
    c.fermerLesAlertes();
    c.cliquer("Allumer");
    c.mac.poserEtat("ecriture_retenue", "");
    c.cliquer("Non");
    c.cliquer("Refaire le test");
    c.cliquer("Allumer");
    EXPECT_EQ(c.alertes.size(), 1U) << "la poignée perdue tient l'émetteur";
    c.mac.retirer("/etat/ecriture_retenue");
    const std::string fiche = c.mac.lire("/etat/usb/emetteur-1");
    c.mac.retirer("/etat/usb/emetteur-1");
    c.mac.poser("/etat/usb/emetteur-1", fiche);
    EXPECT_TRUE(essai::attendreQue([&] {
        c.cliquer("Allumer");
        return essai::compter("FT_Open : statut 0") == 2;
    })) << "rebranché, il se rallume";
    c.mac.poserEtat("ecriture_retenue", "");
    c.cliquer("Oui");
    EXPECT_EQ(c.titre(), "Tout fonctionne 🎉");
}
