#include "plateforme/application.hpp"
#include "plateforme/macos/textes.hpp"

#import <AppKit/AppKit.h>

@interface DelegueCocoa : NSObject <NSApplicationDelegate> {
    plateforme::DelegueApplication delegue_;
}
- (instancetype)initAvecDelegue:(const plateforme::DelegueApplication&)delegue;
@end

@implementation DelegueCocoa

- (instancetype)initAvecDelegue:(const plateforme::DelegueApplication&)delegue {
    self = [super init];
    if (self != nil) {
        delegue_ = delegue;
    }
    return self;
}

- (void)applicationDidFinishLaunching:(NSNotification*)__unused notification {
    delegue_.lancementTermine();
}

- (BOOL)applicationShouldTerminateAfterLastWindowClosed:(NSApplication*)__unused application {
    return delegue_.terminerApresDerniereFenetre() ? YES : NO;
}

@end

namespace plateforme {
namespace {

NSApplication* application() { return NSApplication.sharedApplication; }

// Envoyés au premier répondeur : le texte sélectionné pour l'un, l'application pour l'autre.
SEL selecteur(ActionMenu action) {
    return action == ActionMenu::copier ? @selector(copy:) : @selector(terminate:);
}

NSMenuItem* articlePour(const Menu& menu) {
    NSMenu* sousMenu = [[NSMenu alloc] initWithTitle:macos::versNSString(menu.titre)];
    for (const ArticleMenu& article : menu.articles) {
        [sousMenu addItemWithTitle:macos::versNSString(article.titre)
                            action:selecteur(article.action)
                     keyEquivalent:macos::versNSString(std::string(1, article.touche))];
    }
    NSMenuItem* entree = [[NSMenuItem alloc] init];
    entree.submenu = sousMenu;
    return entree;
}

} // namespace

void definirDelegue(const DelegueApplication& delegue) {
    // L'application ne tient son délégué que par une référence faible.
    static DelegueCocoa* tenu = nil;
    tenu = [[DelegueCocoa alloc] initAvecDelegue:delegue];
    application().delegate = tenu;
}

void adopterPolitiqueOrdinaire() {
    [application() setActivationPolicy:NSApplicationActivationPolicyRegular];
}

void executerApplication() { [application() run]; }

void installerMenu(const std::vector<Menu>& menus) {
    NSMenu* barre = [[NSMenu alloc] init];
    for (const Menu& menu : menus) {
        [barre addItem:articlePour(menu)];
    }
    application().mainMenu = barre;
}

void activerApplication() { [application() activateIgnoringOtherApps:YES]; }

void terminerApplication() { [application() terminate:nil]; }

} // namespace plateforme
