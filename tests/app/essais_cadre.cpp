// La fenêtre et le cadre des pages.
#include "app/conduite.hpp"

using essai::Conduite;

TEST(Cadre, laBienvenueDitLaVersionDInfoPlistEtSesTextesSeCopient) {
    Conduite c;
    const std::string cle = "<key>CFBundleShortVersionString</key>";
    // La ligne d'Info.plist, ce que montre la fenêtre, ce que note le journal.
    for (const auto& [valeur, affichee, notee] :
         {std::array<std::string, 3>{cle + "<string>1.2</string>", "1.2", "1.2"},
          {cle + "<integer>12</integer>", "?", "12"},
          {"", "?", "?"}}) {
        c.mac.poser("/Applications/Assistant Lumivia.app/Contents/Info.plist",
                    "<plist><dict>" + valeur + "</dict></plist>");
        c.demarrer();
        EXPECT_EQ(c.textes().back(), "Version " + affichee);
        EXPECT_EQ(essai::compter("Démarrage de l'assistant " + notee), 1);
    }
    EXPECT_EQ(c.fenetre().windowTitle().toStdString(), "Assistant Lumivia — Voltaris");
    EXPECT_EQ(c.fenetre().minimumSize(), c.fenetre().maximumSize());
    QApplication::setActiveWindow(&c.fenetre());
    QLabel* texte = c.fenetre().contenu()->findChildren<QLabel*>()[1];
    texte->setFocus();
    texte->setSelection(0, static_cast<int>(texte->text().size()));
    c.touche(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), texte->text());
}

TEST(Cadre, leClavierSeulConduitDesPagesQuiNeGardentQueLeursVues) {
    Conduite c("deux-emetteurs");
    c.allerAuResultat();
    const std::vector<std::string> textes = c.textes();
    c.cliquer("Analyser à nouveau");
    EXPECT_EQ(c.boutons().size(), 1) << "l'analyse n'offre que le rapport";
    ASSERT_TRUE(c.attendrePage("Résultat de l'analyse"));
    EXPECT_EQ(c.textes(), textes);
    c.touche(Qt::Key_Return);
    ASSERT_EQ(c.titre(), "Tester avec votre projecteur");
    QApplication::setActiveWindow(&c.fenetre());
    for (const char* titre : {"Oui", "Non", "Éteindre", "Clignoter", "Allumer",
                              "Copier le rapport pour le support", "Oui"}) {
        c.touche(Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), &c.bouton(titre)) << titre;
    }
    c.touche(Qt::Key_Return);
    EXPECT_EQ(essai::compter("Test DMX : plein"), 1) << "Retour va au bouton par défaut";
    EXPECT_EQ(c.titre(), "Tester avec votre projecteur");
    c.touche(Qt::Key_Space);
    EXPECT_EQ(c.titre(), "Tout fonctionne 🎉");
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
