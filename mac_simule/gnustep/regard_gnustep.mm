// La surface du robot (mac_simule/robot/regard.hpp), pour les vues de GNUstep.
#import "mac_simule/gnustep/disposition.hpp"

#include "mac_simule/robot/regard.hpp"
#include "mac_simule/robot/robot.hpp"

#include <cmath>
#include <cstdlib>

@interface Guet : NSObject
+ (void)regarder;
+ (void)presser:(NSButton*)bouton;
@end

namespace {

constexpr double kIntervalle = 0.005; // s

std::function<void()> regard;
bool appuiPromis = false;

NSArray* modes() {
    return [NSArray arrayWithObjects:NSDefaultRunLoopMode, NSModalPanelRunLoopMode, nil];
}

std::string lu(NSString* texte) {
    const char* octets = [texte UTF8String];
    return octets == nullptr ? "" : octets;
}

NSWindow* fenetre() {
    for (NSWindow* vue in [NSApp windows]) {
        if ([vue isVisible] && [[vue title] length] > 0 && vue != [NSApp modalWindow] &&
            [[[vue contentView] subviews] count] > 0 &&
            [[[[vue contentView] subviews] lastObject] isKindOfClass:[NSStackView class]]) {
            return vue;
        }
    }
    return nil;
}

NSWindow* devant() { return robot::alerteOuverte() ? [NSApp modalWindow] : fenetre(); }

// Les vues d'ici qui se voient, dans l'ordre où elles se tiennent. Une alerte de GNUstep range hors
// de son cadre les boutons dont elle ne se sert pas.
void enumerer(NSView* ici, const std::function<void(NSView*)>& voir) {
    for (NSView* vue in [ici subviews]) {
        if (![vue isHidden] && NSIntersectsRect([vue frame], [ici bounds])) {
            voir(vue);
            enumerer(vue, voir);
        }
    }
}

template <typename Genre> Genre* premiere(const std::function<bool(Genre*)>& convient) {
    Genre* trouvee = nil;
    enumerer([devant() contentView], [&](NSView* vue) {
        if (trouvee == nil && [vue isKindOfClass:[Genre class]] &&
            convient(static_cast<Genre*>(vue))) {
            trouvee = static_cast<Genre*>(vue);
        }
    });
    return trouvee;
}

std::string police(NSFont* sienne) {
    const bool gras =
        ([[NSFontManager sharedFontManager] traitsOfFont:sienne] & NSBoldFontMask) != 0;
    return std::to_string(std::lround([sienne pointSize])) + " points" + (gras ? ", gras" : "");
}

// Ce qu'une personne lit, sans ce qui ne sert qu'à couper les lignes.
std::string luSansLiens(NSString* texte) {
    NSString* nu = [texte stringByReplacingOccurrencesOfString:@"\u2060" withString:@""];
    return lu([nu stringByReplacingOccurrencesOfString:@"\u00A0" withString:@" "]);
}

// Ce qui se dessine vraiment : le texte d'une étiquette porte sa police et sa couleur.
template <typename Attribut> Attribut* dessine(NSTextField* etiquette, NSString* nom) {
    NSAttributedString* texte = [etiquette attributedStringValue];
    return [texte length] == 0 ? nil : [texte attribute:nom atIndex:0 effectiveRange:nullptr];
}

bool parDefaut(NSButton* bouton) { return [[bouton keyEquivalent] isEqualToString:@"\r"]; }

// Le genre est vide pour une vue qui n'en montre que d'autres.
robot::Vue decrire(NSView* ici) {
    robot::Vue vue;
    if ([ici isKindOfClass:[NSPopUpButton class]]) {
        auto* menu = static_cast<NSPopUpButton*>(ici);
        vue.genre = "menu";
        vue.reglages = lu([menu titleOfSelectedItem]);
        vue.texte = lu([[menu itemTitles] componentsJoinedByString:@"\n"]);
    } else if ([ici isKindOfClass:[NSButton class]]) {
        auto* bouton = static_cast<NSButton*>(ici);
        // L'icône d'une alerte de GNUstep est un bouton sans titre visible.
        vue.genre = [bouton imagePosition] == NSImageOnly ? "" : "bouton";
        vue.reglages = police([bouton font]) + (parDefaut(bouton) ? ", par défaut" : "");
        vue.texte = lu([bouton title]);
    } else if ([ici isKindOfClass:[NSTextField class]]) {
        auto* etiquette = static_cast<NSTextField*>(ici);
        const bool seconde = [dessine<NSColor>(etiquette, NSForegroundColorAttributeName)
            isEqual:[NSColor secondaryLabelColor]];
        vue.genre = "étiquette";
        vue.reglages = police(dessine<NSFont>(etiquette, NSFontAttributeName)) +
                       (seconde ? ", secondaire" : "");
        vue.texte = luSansLiens([etiquette stringValue]);
    } else if ([ici isKindOfClass:[NSImageView class]]) {
        vue.genre = "image";
        vue.texte = lu([ici toolTip]);
    }
    return vue;
}

// Une disposition prévue attend le tour de boucle suivant ; ce qui se regarde est déjà posé.
void disposer() {
    for (NSView* vue in [[devant() contentView] subviews]) {
        if ([vue isKindOfClass:[NSStackView class]]) {
            [static_cast<NSStackView*>(vue) disposer];
        }
    }
}

// Un appui et son relâchement, tels que la souris les ferait : c'est l'événement que l'adaptateur
// interroge.
void cliquer(NSView* vue) {
    const NSRect cadre = [vue bounds];
    const NSPoint milieu = [vue convertPoint:NSMakePoint(NSMidX(cadre), NSMidY(cadre)) toView:nil];
    for (const NSEventType genre : {NSLeftMouseDown, NSLeftMouseUp}) {
        NSEvent* evenement = [NSEvent mouseEventWithType:genre
                                                location:milieu
                                           modifierFlags:0
                                               timestamp:[[NSDate date] timeIntervalSince1970]
                                            windowNumber:[[vue window] windowNumber]
                                                 context:[[vue window] graphicsContext]
                                             eventNumber:0
                                              clickCount:1
                                                pressure:1];
        [NSApp postEvent:evenement atStart:NO];
    }
}

} // namespace

@implementation Guet

// Le robot est dans le programme, qui n'en sait rien.
+ (void)load {
    [[NSNotificationCenter defaultCenter] addObserver:self
                                             selector:@selector(demarrer:)
                                                 name:NSApplicationDidFinishLaunchingNotification
                                               object:nil];
}

+ (void)demarrer:(NSNotification*)notification {
    robot::demarrer();
}

+ (void)regarder {
    if (!appuiPromis) {
        NSAutoreleasePool* bassin = [[NSAutoreleasePool alloc] init];
        regard();
        [bassin drain];
    }
}

+ (void)presser:(NSButton*)bouton {
    appuiPromis = false;
    cliquer(bouton);
}

@end

namespace robot {

std::string titre() {
    NSTextField* premier = nil;
    enumerer([fenetre() contentView], [&](NSView* vue) {
        if (premier == nil && [vue isKindOfClass:[NSTextField class]]) {
            premier = static_cast<NSTextField*>(vue);
        }
    });
    return lu([premier stringValue]);
}

bool alerteOuverte() { return [NSApp modalWindow] != nil; }

std::vector<Vue> scene() {
    disposer();
    NSView* racine = [devant() contentView];
    const NSSize taille = [racine frame].size;
    std::vector<Vue> vues{{"fenêtre",
                           0,
                           0,
                           static_cast<int>(taille.width),
                           static_cast<int>(taille.height),
                           {},
                           lu([devant() title])}};
    enumerer(racine, [&](NSView* ici) {
        Vue vue = decrire(ici);
        const NSRect cadre = [ici convertRect:[ici bounds] toView:nil];
        vue.x = static_cast<int>(NSMinX(cadre));
        vue.y = static_cast<int>(taille.height - NSMaxY(cadre));
        vue.largeur = static_cast<int>(NSWidth(cadre));
        vue.hauteur = static_cast<int>(NSHeight(cadre));
        if (!vue.genre.empty()) {
            vues.push_back(vue);
        }
    });
    return vues;
}

bool presser(const std::string& titre) {
    auto* bouton = premiere<NSButton>(
        [&](NSButton* vu) { return titre.empty() ? parDefaut(vu) : lu([vu title]) == titre; });
    if (bouton != nil) {
        appuiPromis = true;
        [Guet performSelector:@selector(presser:) withObject:bouton afterDelay:0 inModes:modes()];
    }
    return bouton != nil;
}

bool choisir(const std::string& article) {
    auto* menu = premiere<NSPopUpButton>([](NSPopUpButton*) { return true; });
    const NSInteger rang =
        [menu indexOfItemWithTitle:[NSString stringWithUTF8String:article.c_str()]];
    if (menu == nil || rang < 0) {
        return false;
    }
    [menu selectItemAtIndex:rang];
    return [menu sendAction:[menu action] to:[menu target]];
}

void fermer() { [fenetre() performClose:nil]; }

std::string pressePapiers() {
    return lu([[NSPasteboard generalPasteboard] stringForType:NSPasteboardTypeString]);
}

bool photographier(const std::string& chemin) {
    disposer();
    NSView* vue = [devant() contentView];
    [vue display];
    [vue lockFocus];
    NSBitmapImageRep* image =
        [[[NSBitmapImageRep alloc] initWithFocusedViewRect:[vue bounds]] autorelease];
    [vue unlockFocus];
    NSData* octets = [image representationUsingType:NSPNGFileType
                                         properties:[NSDictionary dictionary]];
    return [octets writeToFile:[NSString stringWithUTF8String:chemin.c_str()] atomically:NO];
}

void surveiller(std::function<void()> nouveau) {
    regard = std::move(nouveau);
    [[NSNotificationCenter defaultCenter] addObserver:[Guet class]
                                             selector:@selector(regarder)
                                                 name:PageDisposee
                                               object:nil];
    NSTimer* ronde = [NSTimer timerWithTimeInterval:kIntervalle
                                             target:[Guet class]
                                           selector:@selector(regarder)
                                           userInfo:nil
                                            repeats:YES];
    for (NSString* mode in modes()) {
        [[NSRunLoop currentRunLoop] addTimer:ronde forMode:mode];
    }
}

void finir(int code) {
    if (code == EXIT_SUCCESS) {
        [NSApp terminate:nil];
    }
    std::exit(code);
}

} // namespace robot
