// La fenêtre et le cadre des pages.
#include "app/conduite.hpp"

#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>

using essai::Conduite;

TEST(Cadre, laBienvenueDitLaVersionDInfoPlist) {
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
}

TEST(Cadre, unTexteSelectionneSeCopie) {
    Conduite c;
    c.demarrer();
    EXPECT_EQ(c.fenetre().minimumSize(), c.fenetre().maximumSize());
    QLabel* texte = c.fenetre().centralWidget()->findChildren<QLabel*>()[1];
    QTest::mouseClick(texte, Qt::LeftButton);
    texte->setSelection(0, static_cast<int>(texte->accessibleName().size()));
    c.touche(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(robot::pressePapiers(), texte->accessibleName().toStdString());
}

TEST(Cadre, leClavierSeulConduitLesPages) {
    Conduite c("deux-emetteurs");
    c.allerAuResultat();
    c.touche(Qt::Key_Return);
    ASSERT_EQ(robot::titre(), "Tester avec votre projecteur");
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
    EXPECT_EQ(robot::titre(), "Tester avec votre projecteur");
    c.touche(Qt::Key_Space);
    EXPECT_EQ(robot::titre(), "Tout fonctionne 🎉");
    bool quitte = false;
    QObject::connect(&c.bouton("Quitter"), &QPushButton::clicked, [&] { quitte = true; });
    for (const Qt::Key touche :
         {Qt::Key_Tab, Qt::Key_Space, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}) {
        EXPECT_FALSE(quitte);
        c.touche(touche);
    }
    EXPECT_FALSE(quitte) << "Retour choisit dans la liste ouverte";
    EXPECT_EQ(c.fenetre().centralWidget()->findChild<QComboBox*>()->currentText(), "FootLight");
    c.touche(Qt::Key_Return);
    EXPECT_TRUE(quitte) << "la liste fermée, il va de nouveau au bouton par défaut";
}

TEST(Cadre, unGesteQuiDureNeFaitAvancerQueDUnePage) {
    Conduite c("complet");
    c.allerAuResultat();
    c.cliquerVite("Continuer", 3);
    ASSERT_EQ(robot::titre(), "Retirer l'ancien pilote");
    EXPECT_EQ(qobject_cast<QPushButton*>(QApplication::focusWidget()), nullptr)
        << "un clic ne donne pas le clavier";
    for (int i = 0; i < 3; ++i) {
        c.touche(Qt::Key_Return, Qt::NoModifier, true);
    }
    EXPECT_EQ(robot::titre(), "Retirer l'ancien pilote") << "une touche tenue";
    c.cliquerVite("Retirer", 1);
    EXPECT_EQ(robot::titre(), "Retrait en cours…") << "un clic de cette page";
}
