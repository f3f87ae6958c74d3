// Les propriétés de plateforme/macos qu'un parcours ne montre pas. Chaque cas est un processus,
// dans l'espace d'un Mac simulé (./verifier), où la mémoire rendue est salie.
#import <AppKit/AppKit.h>

#include "mac_simule/gnustep/references.hpp"
#include "mac_simule/robot/regard.hpp"
#include "plateforme/application.hpp"
#include "plateforme/boucle.hpp"
#include "plateforme/langue.hpp"
#include "plateforme/liste_proprietes.hpp"
#include "plateforme/macos/vue_native.hpp"
#include "plateforme/paquet.hpp"
#include "plateforme/peripheriques_usb.hpp"
#include "plateforme/preferences.hpp"
#include "plateforme/presse_papiers.hpp"
#include "plateforme/processus.hpp"
#include "plateforme/systeme_exploitation.hpp"

#include <cmath>
#include <csignal>
#include <ctime>
#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <sys/wait.h>
#include <thread>

using plateforme::Bouton;
using plateforme::Fenetre;
using plateforme::Orientation;
using plateforme::Pile;
using plateforme::Vue;

namespace {

class Bassin {
  public:
    ~Bassin() { [bassin_ drain]; }

  private:
    NSAutoreleasePool* bassin_ = [[NSAutoreleasePool alloc] init];
};

// Fait tourner la boucle jusqu'à ce que le prédicat soit vrai, ou jusqu'au bout du délai.
bool tourner(
    double secondes, const std::function<bool()>& fini = [] { return false; }) {
    NSDate* limite = [[NSDate alloc] initWithTimeIntervalSinceNow:secondes];
    while (!fini() && [limite timeIntervalSinceNow] > 0) {
        const Bassin bassin;
        NSEvent* evenement = [NSApp nextEventMatchingMask:NSAnyEventMask
                                                untilDate:[NSDate dateWithTimeIntervalSinceNow:0.01]
                                                   inMode:NSDefaultRunLoopMode
                                                  dequeue:YES];
        if (evenement != nil) {
            [NSApp sendEvent:evenement];
        }
    }
    [limite release];
    return fini();
}

void poserFait(const std::string& fait, const std::string& texte) {
    std::ofstream("/mac/etat/" + fait) << texte;
}

NSEvent* touche(NSString* lettre, NSUInteger avec, bool tenue = false) {
    return [NSEvent keyEventWithType:NSKeyDown
                            location:NSZeroPoint
                       modifierFlags:avec
                           timestamp:0
                        windowNumber:[[NSApp mainWindow] windowNumber]
                             context:nil
                          characters:lettre
         charactersIgnoringModifiers:lettre
                           isARepeat:tenue
                             keyCode:0];
}

// Une fenêtre et sa pile, montrées.
struct Page {
    Fenetre fenetre{"Essai", 400, 300};
    Pile pile{Orientation::verticale};

    Page() {
        [NSApp finishLaunching];
        fenetre.poser(pile, {}, 0);
        fenetre.montrer();
    }

    NSWindow* native() const { return [pile.native().vue window]; }
};

// Fait vivre l'application jusqu'à sa fin, que `geste` doit demander ; le succès est de finir.
void vivre(bool derniereFenetre, const std::function<void()>& geste) {
    plateforme::definirDelegue({geste, [=] { return derniereFenetre; }});
    std::thread([] {
        std::this_thread::sleep_for(std::chrono::seconds(20));
        std::fputs("l'application n'a pas fini\n", stderr);
        std::_Exit(EXIT_FAILURE);
    }).detach();
    plateforme::executerApplication();
    FAIL() << "la boucle est revenue";
}

class Proprietes : public testing::Test {
  public:
    Proprietes() { [NSApplication sharedApplication]; }

  private:
    Bassin bassin_;
};

} // namespace

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

TEST_F(Proprietes, unMinuteurSArreteMemeDepuisSonBattement) {
    int battements = 0;
    std::unique_ptr<plateforme::Minuteur> minuteur;
    minuteur = std::make_unique<plateforme::Minuteur>(0.02, [&, temoin = std::string(99, 't')] {
        if (++battements == 3) {
            minuteur.reset();
        }
        EXPECT_EQ(temoin, std::string(99, 't'));
    });
    EXPECT_TRUE(tourner(20, [&] { return battements == 3; }));
    tourner(0.2);
    EXPECT_EQ(battements, 3);
    minuteur = std::make_unique<plateforme::Minuteur>(0.02, [&] { ++battements; });
    minuteur.reset();
    tourner(0.2);
    EXPECT_EQ(battements, 3);
}

TEST_F(Proprietes, lesTachesPassentDansLOrdreSurLeFilPrincipal) {
    std::string suite;
    plateforme::executerEnArrierePlan([&] {
        EXPECT_FALSE([NSThread isMainThread]);
        for (const char* lettre : {"a", "b", "c"}) {
            plateforme::executerSurPrincipal([&suite, texte = std::string(lettre)] {
                EXPECT_TRUE([NSThread isMainThread]);
                suite += texte;
            });
        }
    });
    EXPECT_TRUE(tourner(20, [&] { return suite == "abc"; }));
}

TEST_F(Proprietes, fermerLaDerniereFenetreFinit) {
    std::unique_ptr<Page> page;
    vivre(true, [&] {
        page = std::make_unique<Page>();
        [page->native() performSelector:@selector(performClose:) withObject:nil afterDelay:0.2];
    });
}

TEST_F(Proprietes, terminerFinit) {
    vivre(false, [] { plateforme::executerSurPrincipal(plateforme::terminerApplication); });
}

TEST_F(Proprietes, leMenuALesSelecteursEtLesTouchesEtCommandeQFinit) {
    std::unique_ptr<Page> page;
    vivre(false, [&] {
        page = std::make_unique<Page>();
        plateforme::installerMenu({{"", {{"Quitter", plateforme::ActionMenu::terminer, 'q'}}},
                                   {"Édition", {{"Copier", plateforme::ActionMenu::copier, 'c'}}}});
        NSMutableString* lu = [NSMutableString string];
        for (NSMenuItem* entree in [[NSApp mainMenu] itemArray]) {
            NSMenuItem* article = [[entree submenu] itemAtIndex:0];
            [lu appendFormat:@"%@,%@,%@,%d,%d ", [article title],
                             NSStringFromSelector([article action]), [article keyEquivalent],
                             [article target] == nil,
                             [article keyEquivalentModifierMask] == NSCommandKeyMask];
        }
        NSString* voulu = @"Quitter,terminate:,q,1,1 Copier,copy:,c,1,1 ";
        if (![lu isEqual:voulu]) {
            std::fprintf(stderr, "menus : %s\n", [lu UTF8String]);
            std::_Exit(EXIT_FAILURE);
        }
        [NSApp postEvent:touche(@"q", NSCommandKeyMask) atStart:NO];
    });
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

TEST_F(Proprietes, unePreferenceSurvitAUnKill) {
    for (const char* geste : {"ecrire", "retirer"}) {
        EXPECT_EQ(plateforme::executer("/proc/self/exe", {geste}).octets, "");
        const std::string lue = plateforme::executer("/proc/self/exe", {"lire"}).octets;
        EXPECT_EQ(lue, geste == std::string("ecrire") ? "{ sec = 17 } été ✅\nfin " : "(rien)");
    }
}

TEST_F(Proprietes, unAutreProcessusRelitLePressePapiers) {
    std::this_thread::sleep_for(std::chrono::milliseconds(500)); // gpbs s'ouvre à peine
    plateforme::copierTexte("premier");
    plateforme::copierTexte("l'été\nsuite");
    EXPECT_EQ(plateforme::executer("/proc/self/exe", {"coller"}).octets, "l'été\nsuite");
}

TEST_F(Proprietes, laDateEstLocaleEtALaForme) {
    [NSTimeZone setDefaultTimeZone:[NSTimeZone timeZoneWithName:@"Asia/Kolkata"]];
    ::setenv("TZ", "Asia/Kolkata", 1);
    ::tzset();
    const auto ecrite = [](std::time_t instant) {
        char texte[32] = {};
        std::strftime(texte, sizeof texte, "%Y-%m-%d %H:%M:%S", std::localtime(&instant));
        return std::string(texte);
    };
    const std::string avant = ecrite(std::time(nullptr));
    const std::string lue = plateforme::horodatageLocal();
    EXPECT_LE(avant, lue);
    EXPECT_LE(lue, ecrite(std::time(nullptr)));
    EXPECT_EQ(lue.size(), avant.size());
}

TEST_F(Proprietes, laComparaisonEstCelleDeLaLangue) {
    EXPECT_TRUE(plateforme::seRangeAvant("École", "faute"));
    EXPECT_TRUE(plateforme::seRangeAvant("a", "B"));
    EXPECT_FALSE(plateforme::seRangeAvant("B", "a"));
    EXPECT_FALSE(plateforme::seRangeAvant("LUZ", "luz"));
    EXPECT_FALSE(plateforme::seRangeAvant("luz", "LUZ"));
}

TEST_F(Proprietes, laRechercheUSBRendCeQuElleTientEtNePrendQueDesTextes) {
    poserFait("usb/a", "fabricant 0x0403\nproduit 0x6001\nserie É1\n");
    poserFait("usb/b", "fabricant 0x0403\nproduit 0x6001\n");
    poserFait("usb/c", "fabricant 0x0403\nproduit 0x6001\nserie_nombre 42\n");
    poserFait("usb/d", "fabricant 0x0403\nproduit 0x6015\nserie AUTRE\n");
    poserFait("usb/e", "fabricant 0x0404\nproduit 0x6001\nserie AUTRE\n");
    std::remove("/mac/etat/usb/emetteur-1");
    using Numeros = std::vector<std::optional<std::string>>;
    {
        const Bassin bassin;
        EXPECT_EQ(plateforme::numerosDeSerieUSB(0x0403, 0x6001),
                  (Numeros{"É1", std::nullopt, std::nullopt}));
    }
    EXPECT_EQ(gnustep::referencesTenues(), 0);
}

TEST_F(Proprietes, leRedemarrageSeDemandeParSonTexteExact) {
    plateforme::demanderRedemarrage();
    std::string demande;
    std::getline(std::ifstream("/mac/etat/redemarrage_demande"), demande);
    EXPECT_EQ(demande, "oui");
}

TEST_F(Proprietes, lePaquetDitCeQuIlAEtCeQuIlNAPas) {
    const std::string paquet = plateforme::cheminPaquet();
    EXPECT_EQ(paquet, "/Applications/Assistant Lumivia.app");
    EXPECT_FALSE(plateforme::cheminRessource("absente", "png").has_value());
    const auto presente = plateforme::cheminRessource("05-terminal-mot-de-passe", "png");
    const auto image = plateforme::VueImage::lire(presente.value_or(""), "");
    ASSERT_TRUE(image.has_value());
    EXPECT_GT(image->tailleImage().largeur, image->tailleImage().hauteur);
    EXPECT_FALSE(plateforme::VueImage::lire(paquet + "/absente.png", "").has_value());
    using Genre = plateforme::ValeurInfo::Genre;
    EXPECT_EQ(plateforme::valeurInfo("Inconnue").genre, Genre::absente);
    EXPECT_EQ(plateforme::valeurInfo("CFBundlePackageType").texte, "APPL");
    EXPECT_EQ(plateforme::valeurInfo("CFBundlePackageType").genre, Genre::texte);
    EXPECT_EQ(plateforme::valeurInfo("NSHighResolutionCapable").genre, Genre::autre);
}

TEST_F(Proprietes, unTexteQuiNEstPasDeLUTF8DevientVide) {
    const auto etiquette = plateforme::Etiquette::simple("\xFF\xFE");
    EXPECT_EQ([[static_cast<NSTextField*>(etiquette.native().vue) stringValue] length], 0U);
    const auto liste = plateforme::serialiserListe({{"cle", std::vector<std::string>{"\xFF"}}});
    EXPECT_TRUE(liste.octets.has_value());
    etiquette.setTexte("fini");
    EXPECT_TRUE([[static_cast<NSTextField*>(etiquette.native().vue) stringValue] isEqual:@"fini"]);
}

namespace {

// Ce qu'un second processus fait d'un premier.
void jouer(const std::string& geste) {
    const Bassin bassin;
    if (geste == "ecrire") {
        plateforme::ecrirePreference("cle", "{ sec = 17 } été ✅\nfin ");
        std::raise(SIGKILL);
    } else if (geste == "retirer") {
        plateforme::retirerPreference("cle");
        std::raise(SIGKILL);
    } else if (geste == "lire") {
        std::fputs(plateforme::lirePreference("cle").value_or("(rien)").c_str(), stdout);
    } else {
        std::fputs(robot::pressePapiers().c_str(), stdout);
    }
}

} // namespace

int main(int nombre, char** arguments) {
    testing::InitGoogleTest(&nombre, arguments);
    if (nombre == 2 && std::string(arguments[1]) != "/mac") {
        jouer(arguments[1]);
        return EXIT_SUCCESS;
    }
    return RUN_ALL_TESTS();
}
