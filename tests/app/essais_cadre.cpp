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
    const QPixmap sansAnneau = c.bouton("Oui").grab();
    c.touche(Qt::Key_Space);
    EXPECT_EQ(qobject_cast<QPushButton*>(QApplication::focusWidget()), nullptr)
        << "aucun bouton n'a le clavier avant Tab";
    for (const char* titre : {"Oui", "Non", "Éteindre", "Clignoter", "Allumer",
                              "Copier le rapport pour le support", "Oui"}) {
        c.touche(Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), &c.bouton(titre)) << titre;
    }
    QApplication::setActiveWindow(nullptr);
    QApplication::setActiveWindow(&c.fenetre());
    EXPECT_NE(c.bouton("Oui").grab().toImage(), sansAnneau.toImage())
        << "l'anneau revient avec la fenêtre";
    c.touche(Qt::Key_Return);
    EXPECT_EQ(essai::compter("Test DMX : plein"), 1) << "Retour va au bouton par défaut";
    EXPECT_EQ(c.titre(), "Tester avec votre projecteur");
    c.touche(Qt::Key_Space);
    EXPECT_EQ(c.titre(), "Tout fonctionne 🎉");
    bool quitte = false;
    QObject::connect(&c.bouton("Quitter"), &QPushButton::clicked, [&] { quitte = true; });
    for (const Qt::Key touche :
         {Qt::Key_Tab, Qt::Key_Space, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}) {
        EXPECT_FALSE(quitte);
        c.touche(touche);
    }
    EXPECT_FALSE(quitte) << "Retour choisit dans la liste ouverte";
    EXPECT_EQ(c.fenetre().contenu()->findChild<QComboBox*>()->currentText(), "FootLight");
    c.touche(Qt::Key_Return);
    EXPECT_TRUE(quitte) << "la liste fermée, il va de nouveau au bouton par défaut";
}

TEST(Cadre, unGesteQuiDureNeFaitAvancerQueDUnePage) {
    Conduite c("complet");
    c.allerAuResultat();
    QApplication::setActiveWindow(&c.fenetre());
    c.cliquerVite("Continuer", 3);
    ASSERT_EQ(c.titre(), "Retirer l'ancien pilote");
    EXPECT_EQ(qobject_cast<QPushButton*>(QApplication::focusWidget()), nullptr)
        << "un clic ne donne pas le clavier";
    for (int i = 0; i < 3; ++i) {
        c.touche(Qt::Key_Return, Qt::NoModifier, true);
    }
    EXPECT_EQ(c.titre(), "Retirer l'ancien pilote") << "une touche tenue";
    c.cliquerVite("Retirer", 1);
    EXPECT_EQ(c.titre(), "Retrait en cours…") << "un clic de cette page";
}
