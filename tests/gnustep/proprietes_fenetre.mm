// La fenêtre, ses vues et leurs actions.
#include "gnustep/proprietes.hpp"

#include "mac_simule/robot/regard.hpp"
#include "plateforme/liste_proprietes.hpp"

using namespace essai;

TEST_F(Proprietes, laFenetreTientSonDelegueEtSurvitASaFermeture) {
    int fermetures = 0;
    auto page = std::make_unique<Page>();
    {
        const Bassin bassin;
        page->fenetre.surFermeture([&] { ++fermetures; });
    }
    tourner(0.1);
    {
        const Bassin bassin;
        [page->native() performClose:nil];
    }
    tourner(0.1);
    EXPECT_EQ(fermetures, 1);
    page->fenetre.montrer();
    EXPECT_TRUE([page->native() isVisible]);
    const Bassin bassin;
    page.reset();
}

TEST_F(Proprietes, unControleTientSaCible) {
    int appuis = 0;
    int choisi = -1;
    Page page;
    {
        const Bassin bassin;
        page.pile.ajouter(Bouton("Compter", [&] { ++appuis; }));
        page.pile.ajouter(plateforme::MenuLocal({"un", "deux"}, [&](int rang) { choisi = rang; }));
    }
    tourner(0.1);
    EXPECT_TRUE(robot::presser("Compter"));
    tourner(20, [&] { return appuis > 0; });
    EXPECT_TRUE(robot::choisir("deux"));
    EXPECT_EQ(appuis, 1);
    EXPECT_EQ(choisi, 1);
}

TEST_F(Proprietes, uneActionPeutDetruireSaPageEtRienNEnReste) {
    GSDebugAllocationActive(YES);
    Page page;
    int pages = 0;
    std::function<void()> remplir = [&] {
        ++pages;
        page.pile.vider();
        const auto temoin = std::make_shared<std::string>("encore là");
        page.pile.ajouter(Bouton("Suite", [&, temoin] {
            remplir();
            EXPECT_EQ(*temoin, "encore là");
        }));
    };
    {
        const Bassin bassin;
        remplir();
    }
    std::vector<int> comptes;
    for (int tour = 2; tour < 6; ++tour) {
        tourner(0.1);
        {
            const Bassin bassin;
            EXPECT_TRUE(robot::presser("Suite"));
        }
        EXPECT_TRUE(tourner(20, [&] { return pages == tour; }));
        tourner(0.1);
        comptes.push_back(GSDebugAllocationCount([NSButton class]));
    }
    EXPECT_EQ(comptes.back(), comptes.front());
}

TEST_F(Proprietes, laFinDUnDoubleClicEtUneToucheTenueNeComptentPas) {
    int appuis = 0;
    Page page;
    const Bouton bouton("Compter", [&] { ++appuis; });
    bouton.setParDefaut();
    page.pile.ajouter(bouton);
    tourner(0.2);
    [NSApp postEvent:touche(@"\r", 0, true) atStart:NO];
    tourner(0.2);
    EXPECT_EQ(appuis, 0);
    [NSApp postEvent:touche(@"\r", 0) atStart:NO];
    EXPECT_TRUE(tourner(20, [&] { return appuis == 1; }));
    const NSPoint milieu = [bouton.native().vue convertPoint:NSMakePoint(5, 5) toView:nil];
    for (const NSEventType genre : {NSLeftMouseDown, NSLeftMouseUp}) {
        [NSApp postEvent:[NSEvent mouseEventWithType:genre
                                            location:milieu
                                       modifierFlags:0
                                           timestamp:0
                                        windowNumber:[page.native() windowNumber]
                                             context:nil
                                         eventNumber:0
                                          clickCount:2
                                            pressure:1]
                 atStart:NO];
    }
    tourner(0.3);
    EXPECT_EQ(appuis, 1);
}

// GNUstep ne refait la boucle que si on le lui demande : ici, c'est la demande permanente qui se
// lit.
TEST_F(Proprietes, tabAtteintLesBoutonsDUneNouvellePage) {
    Page page;
    const Bouton premier("Premier", [] {});
    const Bouton second("Second", [] {});
    page.pile.ajouter(premier);
    page.pile.ajouter(second);
    tourner(0.1);
    EXPECT_TRUE([page.native() autorecalculatesKeyViewLoop]);
    [page.native() recalculateKeyViewLoop];
    [page.native() makeFirstResponder:premier.native().vue];
    [page.native() selectNextKeyView:nil];
    EXPECT_EQ([page.native() firstResponder], second.native().vue);
}

TEST_F(Proprietes, unTexteQuiNEstPasDeLUTF8DevientVide) {
    const auto etiquette = plateforme::Etiquette::simple("\xFF\xFE");
    EXPECT_EQ([[static_cast<NSTextField*>(etiquette.native().vue) stringValue] length], 0U);
    const auto liste = plateforme::serialiserListe({{"cle", std::vector<std::string>{"\xFF"}}});
    EXPECT_TRUE(liste.octets.has_value());
    etiquette.setTexte("fini");
    EXPECT_TRUE([[static_cast<NSTextField*>(etiquette.native().vue) stringValue] isEqual:@"fini"]);
}

TEST_F(Proprietes, uneEtiquetteComposeSonTexteEtEnRendLOrigine) {
    const std::string texte = "Voici :\n  1.  Collez-le « ici »";
    Page page;
    page.fenetre.surFermeture([] {});
    const auto etiquette = plateforme::Etiquette::multiligne(texte);
    page.pile.ajouter(etiquette);
    auto* champ = static_cast<NSTextField*>(etiquette.native().vue);
    NSFont* police = [NSFont boldSystemFontOfSize:20];
    const auto lire = [](NSAttributedString* vu, NSString* attribut) {
        return [vu attribute:attribut atIndex:10 effectiveRange:nullptr];
    };
    etiquette.setPolice(20, true);
    EXPECT_EQ(lire([champ attributedStringValue], NSFontAttributeName), police);
    etiquette.setCouleurSecondaire();
    tourner(0.6); // gpbs s'ouvre à peine
    [champ selectText:nil];
    auto* editeur = static_cast<NSTextView*>([champ currentEditor]);
    NSAttributedString* vu = [editeur textStorage];
    EXPECT_TRUE([[vu string] isEqual:@"Voici\u00A0:\n  1.  Collez-\u2060le «\u00A0ici\u00A0»"]);
    EXPECT_EQ(lire(vu, NSFontAttributeName), police);
    EXPECT_EQ(lire(vu, NSForegroundColorAttributeName), [NSColor secondaryLabelColor]);
    EXPECT_EQ([lire(vu, NSParagraphStyleAttributeName) headIndent],
              [@"  1.  " sizeWithAttributes:@{NSFontAttributeName : police}].width);
    EXPECT_STREQ([[champ performSelector:@selector(accessibilityValue)] UTF8String], texte.c_str());
    [editeur copy:nil];
    EXPECT_EQ(robot::pressePapiers(), texte);
}
