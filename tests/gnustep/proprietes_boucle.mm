// La boucle : minuteurs, tâches, menu, et les façons de finir.
#include "gnustep/proprietes.hpp"

#include "plateforme/application.hpp"
#include "plateforme/boucle.hpp"

#include <thread>

using namespace essai;

namespace {

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

} // namespace

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
