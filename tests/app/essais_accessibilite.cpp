// Ce qu'une aide à l'accessibilité lit de l'assistant, et ce qui en tient à l'écran.
#include "app/conduite.hpp"

#include <QtGui/QAccessible>

using essai::Conduite;
using Noms = std::vector<std::string>;

namespace {

// Parcourt l'arbre comme une aide le fait, et garde le nom de ce qui se voit de ce rôle.
void lire(QAccessibleInterface& ici, QAccessible::Role role, Noms& lus) {
    if (ici.state().invisible) {
        return;
    }
    if (ici.role() == role) {
        lus.push_back(ici.text(QAccessible::Name).toStdString());
    }
    for (int i = 0; i < ici.childCount(); ++i) {
        lire(*ici.child(i), role, lus);
    }
}

Noms noms(QWidget& fenetre, QAccessible::Role role) {
    Noms lus;
    lire(*QAccessible::queryAccessibleInterface(&fenetre), role, lus);
    return lus;
}

void exigerQueToutTienne(const Conduite& c) {
    const QWidget* contenu = c.fenetre().centralWidget();
    EXPECT_EQ(contenu->size(), QSize(760, 620));
    EXPECT_LE(contenu->layout()->minimumSize().height(), 620) << robot::titre();
    for (const QWidget* vue : contenu->findChildren<QWidget*>()) {
        const QRect place(vue->mapTo(contenu, QPoint()), vue->size());
        EXPECT_TRUE(vue->isHidden() || contenu->rect().contains(place)) << robot::titre();
        EXPECT_GE(vue->height(), vue->minimumSizeHint().height()) << robot::titre();
    }
}

QImage image(QWidget* vue) {
    return vue->grab().toImage();
}

class EcranFin : public ::testing::TestWithParam<std::string> {};

} // namespace

TEST(Accessibilite, uneAideLitLesPages) {
    Conduite c("deux-emetteurs");
    c.allerAuResultat();
    EXPECT_EQ(noms(c.fenetre(), QAccessible::Window), Noms{"Assistant Lumivia — Voltaris"});
    EXPECT_EQ(noms(c.fenetre(), QAccessible::StaticText), c.textes());
    EXPECT_EQ(c.textes()[4], "✅  Aucun ancien pilote à retirer.");
    EXPECT_EQ(noms(c.fenetre(), QAccessible::PushButton),
              (Noms{"Analyser à nouveau", "Continuer", "Copier le rapport pour le support"}));
    QAccessible::queryAccessibleInterface(&c.bouton("Continuer"))
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::pressAction());
    ASSERT_TRUE(c.attendrePage("Tester avec votre projecteur"));
    c.cliquer("Oui");
    EXPECT_EQ(noms(c.fenetre(), QAccessible::ComboBox), Noms{"Chataigne"});
    c.touche(Qt::Key_Tab);
    QWidget* ici = QApplication::focusWidget();
    EXPECT_EQ(noms(*ici, QAccessible::ComboBox), Noms{"Chataigne"});
    const QImage anneau = image(ici); // il ne reste pas après un clic
    QTest::mouseClick(&c.fenetre(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 300));
    EXPECT_TRUE(ici->hasFocus() && image(ici) != anneau);
}

TEST(Accessibilite, uneAlerteSeLitEtSeFermeParEchapp) {
    Conduite c;
    c.demarrer();
    Noms textes;
    QTimer::singleShot(0, [&] {
        QWidget* alerte = QApplication::activeModalWidget();
        textes = noms(*alerte, QAccessible::StaticText);
        EXPECT_EQ(noms(*alerte, QAccessible::PushButton), Noms{"OK"});
        essai::traiter();                                       // l'alerte prend le clavier
        Conduite::touche(Qt::Key_Return, Qt::NoModifier, true); // tenue depuis la page
        EXPECT_TRUE(alerte->isVisible());
        const QImage sansAnneau = image(&c.bouton("OK")); // qui a pourtant le clavier
        Conduite::touche(Qt::Key_Tab);
        EXPECT_NE(image(&c.bouton("OK")), sansAnneau);
        Conduite::touche(Qt::Key_Escape);
    });
    c.cliquer("Copier le rapport pour le support");
    EXPECT_EQ(textes, (Noms{"Rapport copié", "Collez-le (⌘V) dans un e-mail à Voltaris."}));
}

// À l'échelle ordinaire, les places sont dans les parcours approuvés.
TEST_P(EcranFin, lesPagesLesPlusLonguesTiennentDansLaFenetre) {
    qputenv("QT_SCALE_FACTOR", "2");
    Conduite c(GetParam());
    c.allerAuResultat();
    EXPECT_EQ(c.fenetre().devicePixelRatioF(), 2);
    exigerQueToutTienne(c);
    c.cliquer("Continuer"); // le retrait, ou l'extension : les pages qui ont des images
    exigerQueToutTienne(c);
}

INSTANTIATE_TEST_SUITE_P(Accessibilite, EcranFin, ::testing::Values("complet", "extension-seule"));
