#include "plateforme/macos/textes.hpp"
#include "plateforme/macos/vue_native.hpp"

// Ce qui tient la sélection d'une étiquette. Il en donne le texte d'origine, à copier comme à
// glisser, et sans ses attributs.
@interface EditeurDEtiquette : NSTextView
@end

@implementation EditeurDEtiquette

- (BOOL)writeSelectionToPasteboard:(NSPasteboard*)pressePapiers
                             types:(NSArray<NSPasteboardType>*)__unused genres {
    NSString* choisi = [self.string substringWithRange:self.selectedRange];
    [pressePapiers clearContents];
    return [pressePapiers setString:plateforme::macos::sansLiens(choisi)
                            forType:NSPasteboardTypeString];
}

@end

@interface DelegueFenetre : NSObject <NSWindowDelegate> {
    std::function<void()> fermeture_;
    EditeurDEtiquette* editeur_;
}
- (instancetype)initAvecFermeture:(std::function<void()>)fermeture;
@end

@implementation DelegueFenetre

- (instancetype)initAvecFermeture:(std::function<void()>)fermeture {
    self = [super init];
    if (self != nil) {
        fermeture_ = std::move(fermeture);
    }
    return self;
}

- (void)windowWillClose:(NSNotification*)__unused notification {
    fermeture_();
}

// La fenêtre n'a que des étiquettes à sélectionner.
- (id)windowWillReturnFieldEditor:(NSWindow*)__unused fenetre toObject:(id)__unused client {
    if (editeur_ == nil) {
        editeur_ = [[EditeurDEtiquette alloc] init];
        editeur_.fieldEditor = YES;
    }
    return editeur_;
}

@end

namespace plateforme {

struct Fenetre::Native {
    NSWindow* __strong fenetre;
    DelegueFenetre* __strong delegue; // la fenêtre n'en a qu'une référence faible
};

Fenetre::Fenetre(const std::string& titre, double largeur, double hauteur)
    : native_(std::make_shared<Native>()) {
    NSWindow* fenetre =
        [[NSWindow alloc] initWithContentRect:NSMakeRect(0, 0, largeur, hauteur)
                                    styleMask:NSWindowStyleMaskTitled | NSWindowStyleMaskClosable |
                                              NSWindowStyleMaskMiniaturizable
                                      backing:NSBackingStoreBuffered
                                        defer:NO];
    fenetre.releasedWhenClosed = NO; // ARC s'en charge
    fenetre.restorable = NO;
    fenetre.autorecalculatesKeyViewLoop = YES; // Tab atteint les boutons de chaque nouvelle page
    fenetre.title = macos::versNSString(titre);
    native_->fenetre = fenetre;
}

void Fenetre::poser(const Pile& pile, const std::vector<Vue>& pleineLargeur, double retrait) {
    NSView* contenu = [[NSView alloc] init];
    NSView* vue = pile.native().vue;
    vue.translatesAutoresizingMaskIntoConstraints = NO;
    native_->fenetre.contentView = contenu;
    [contenu addSubview:vue];

    NSMutableArray<NSLayoutConstraint*>* contraintes = [NSMutableArray array];
    [contraintes addObject:[vue.leadingAnchor constraintEqualToAnchor:contenu.leadingAnchor]];
    [contraintes addObject:[vue.trailingAnchor constraintEqualToAnchor:contenu.trailingAnchor]];
    [contraintes addObject:[vue.topAnchor constraintEqualToAnchor:contenu.topAnchor]];
    [contraintes addObject:[vue.bottomAnchor constraintEqualToAnchor:contenu.bottomAnchor]];
    for (const Vue& large : pleineLargeur) {
        [contraintes
            addObject:[large.native().vue.widthAnchor constraintEqualToAnchor:vue.widthAnchor
                                                                     constant:-retrait]];
    }
    [NSLayoutConstraint activateConstraints:contraintes];
}

void Fenetre::centrer() { [native_->fenetre center]; }

void Fenetre::montrer() { [native_->fenetre makeKeyAndOrderFront:nil]; }

void Fenetre::surFermeture(std::function<void()> action) {
    native_->delegue = [[DelegueFenetre alloc] initAvecFermeture:std::move(action)];
    native_->fenetre.delegate = native_->delegue;
}

} // namespace plateforme
