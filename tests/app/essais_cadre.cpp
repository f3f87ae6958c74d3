// La fenêtre et le cadre des pages.
#include "app/conduite.hpp"

using essai::Conduite;

TEST(Cadre, laBienvenueAttendDansUneFenetreDeTailleFixe) {
    Conduite c;
    c.demarrer();
    EXPECT_EQ(c.titre(), "Bienvenue");
    EXPECT_EQ(c.parDefaut(), "Analyser mon Mac");
    EXPECT_EQ(c.fenetre().windowTitle().toStdString(), "Assistant Lumivia — Voltaris");
    EXPECT_EQ(c.fenetre().contenu()->size(), QSize(760, 620));
    EXPECT_EQ(c.fenetre().minimumSize(), c.fenetre().maximumSize());
    EXPECT_EQ(c.compter("Démarrage de l'assistant "), 1);
    EXPECT_EQ(Journal::shared().lignes().size(), 1U);
}

// La ligne d'Info.plist, ce que montre la fenêtre, ce que note le journal.
class Version : public ::testing::TestWithParam<std::array<const char*, 3>> {};

TEST_P(Version, vientDInfoPlist) {
    Conduite c;
    const auto& [valeur, affichee, notee] = GetParam();
    c.mac.poser("/Applications/Assistant Lumivia.app/Contents/Info.plist",
                std::string("<plist><dict>") + valeur + "</dict></plist>");
    c.demarrer();
    EXPECT_EQ(c.textes().back(), std::string("Version ") + affichee);
    EXPECT_EQ(Conduite::compter(std::string("Démarrage de l'assistant ") + notee), 1);
}

INSTANTIATE_TEST_SUITE_P(
    Cadre, Version,
    ::testing::Values(
        std::array{"<key>CFBundleShortVersionString</key><string>1.2</string>", "1.2", "1.2"},
        std::array{"<key>CFBundleShortVersionString</key><integer>12</integer>", "?", "12"},
        std::array{"", "?", "?"}));

TEST(Cadre, chaquePageNeGardeQueSesVues) {
    Conduite c;
    c.allerAuResultat();
    const std::size_t lignesDuResultat = c.textes().size();
    c.cliquer("Analyser à nouveau");
    EXPECT_EQ(c.boutons().size(), 1U) << "l'analyse n'offre que le rapport";
    ASSERT_TRUE(c.attendrePage("Résultat de l'analyse"));
    EXPECT_EQ(c.textes().size(), lignesDuResultat);
    c.cliquer("Continuer");
    EXPECT_EQ(c.titre(), "Tester avec votre projecteur");
    EXPECT_EQ(c.boutons().size(), 6U); // trois motifs, deux réponses, le rapport
}

TEST(Cadre, retourVaAuBoutonParDefautOuQueSoitLeClavier) {
    Conduite c("deux-emetteurs");
    c.allerAuResultat();
    c.touche(Qt::Key_Return);
    ASSERT_EQ(c.titre(), "Tester avec votre projecteur");
    EXPECT_EQ(c.parDefaut(), "Allumer");
    c.bouton("Oui")->setFocus();
    c.touche(Qt::Key_Return);
    EXPECT_EQ(c.compter("Test DMX : plein"), 1);
    EXPECT_EQ(c.titre(), "Tester avec votre projecteur");
    c.touche(Qt::Key_Space);
    EXPECT_EQ(c.titre(), "Tout fonctionne 🎉");
}

TEST(Cadre, tabulationPasseParToutDeHautEnBas) {
    Conduite c;
    c.allerAuResultat();
    c.cliquer("Continuer");
    QApplication::setActiveWindow(&c.fenetre());
    std::vector<std::string> passages;
    for (int i = 0; i < 6; ++i) {
        c.touche(Qt::Key_Tab);
        auto* ici = qobject_cast<QPushButton*>(QApplication::focusWidget());
        passages.push_back(ici == nullptr ? "?" : ici->text().toStdString());
    }
    EXPECT_EQ(passages, (std::vector<std::string>{"Oui", "Non", "Éteindre", "Clignoter", "Allumer",
                                                  "Copier le rapport pour le support"}));
}

TEST(Cadre, leTexteSeSelectionneEtSeCopie) {
    Conduite c;
    c.demarrer();
    QApplication::setActiveWindow(&c.fenetre());
    QLabel* texte = c.fenetre().contenu()->findChildren<QLabel*>()[1];
    texte->setFocus();
    texte->setSelection(0, static_cast<int>(texte->text().size()));
    c.touche(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), texte->text());
}

TEST(Cadre, aucunTexteNEstCoupeDUnePageALAutre) {
    Conduite c;
    c.allerAuResultat();
    for (const char* bouton : {"Continuer", "Non", "Refaire le test", "Oui"}) {
        c.cliquer(bouton);
        for (const QLabel* texte : c.fenetre().contenu()->findChildren<QLabel*>()) {
            const QRect place(0, 0, texte->width(), 10'000);
            const int ajour =
                texte->fontMetrics().boundingRect(place, Qt::TextWordWrap, texte->text()).height();
            EXPECT_GE(texte->height(), ajour) << texte->text().toStdString();
            EXPECT_LE(texte->height(), ajour + 12) << texte->text().toStdString();
        }
    }
}
