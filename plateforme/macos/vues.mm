// Boutons, menus locaux et vues vides.
#include "plateforme/macos/textes.hpp"
#include "plateforme/macos/vue_native.hpp"
#include "plateforme/posix/suite_de_clics.hpp"

#include <objc/runtime.h>

using ActionControle = std::function<void(NSControl*)>;

@interface CibleAction : NSObject {
    ActionControle action_;
}
- (instancetype)initAvecAction:(ActionControle)action;
- (void)declencher:(NSControl*)emetteur;
@end

@implementation CibleAction

- (instancetype)initAvecAction:(ActionControle)action {
    self = [super init];
    if (self != nil) {
        action_ = std::move(action);
    }
    return self;
}

// L'action peut faire disparaître l'émetteur, et la cible avec lui : rien n'est touché après elle.
- (void)declencher:(NSControl*)emetteur {
    const ActionControle action = action_;
    action(emetteur);
}

@end

namespace plateforme {
namespace {

// Un contrôle ne tient sa cible que par une référence faible : on l'attache à lui.
void brancher(NSControl* controle, ActionControle action) {
    static const char attache = 0;
    CibleAction* cible = [[CibleAction alloc] initAvecAction:std::move(action)];
    objc_setAssociatedObject(controle, &attache, cible, OBJC_ASSOCIATION_RETAIN_NONATOMIC);
    controle.target = cible;
    controle.action = @selector(declencher:);
}

// Faux pour ce qui reste d'un geste fait sur la page d'avant : la fin d'un double clic, une touche
// tenue. Chaque question lève une exception hors de son genre d'événement.
bool estVoulu(SuiteDeClics& clics) {
    NSEvent* evenement = NSApplication.sharedApplication.currentEvent;
    switch (evenement.type) {
    case NSEventTypeLeftMouseUp:
        return clics.accepte(evenement.clickCount);
    case NSEventTypeKeyDown:
        return !evenement.ARepeat;
    default:
        return true;
    }
}

std::shared_ptr<VueNative> creerBouton(const std::string& titre, std::function<void()> action) {
    NSButton* bouton = [NSButton buttonWithTitle:macos::versNSString(titre) target:nil action:nil];
    bouton.bezelStyle = NSBezelStyleRounded;
    bouton.controlSize = NSControlSizeRegular;
    const auto clics = std::make_shared<SuiteDeClics>();
    brancher(bouton, [action = std::move(action), clics](NSControl*) {
        if (estVoulu(*clics)) {
            action();
        }
    });
    return macos::tenir(bouton);
}

int indexChoisi(NSPopUpButton* menu) { return static_cast<int>(menu.indexOfSelectedItem); }

std::shared_ptr<VueNative> creerMenu(const std::vector<std::string>& articles,
                                     std::function<void(int)> choix) {
    NSPopUpButton* menu = [[NSPopUpButton alloc] initWithFrame:NSMakeRect(0, 0, 0, 0) pullsDown:NO];
    for (const std::string& article : articles) {
        [menu addItemWithTitle:macos::versNSString(article)];
    }
    brancher(menu, [choix = std::move(choix)](NSControl* emetteur) {
        choix(indexChoisi(static_cast<NSPopUpButton*>(emetteur)));
    });
    return macos::tenir(menu);
}

} // namespace

// La priorité basse laisse la vue s'étirer avant toutes les autres.
Vue espace(Orientation direction) {
    NSView* vide = [[NSView alloc] init];
    if (direction == Orientation::verticale) {
        [vide setContentHuggingPriority:NSLayoutPriorityDefaultLow
                         forOrientation:NSLayoutConstraintOrientationVertical];
    }
    return Vue(macos::tenir(vide));
}

Bouton::Bouton(const std::string& titre, std::function<void()> action)
    : Vue(creerBouton(titre, std::move(action))) {}

void Bouton::setParDefaut() const { macos::vueDe<NSButton>(*this).keyEquivalent = @"\r"; }

void Bouton::setPetit() const { macos::vueDe<NSButton>(*this).controlSize = NSControlSizeSmall; }

MenuLocal::MenuLocal(const std::vector<std::string>& articles, std::function<void(int)> choix)
    : Vue(creerMenu(articles, std::move(choix))) {}

int MenuLocal::index() const { return indexChoisi(macos::vueDe<NSPopUpButton>(*this)); }

} // namespace plateforme
