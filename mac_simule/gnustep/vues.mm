// Ce qu'AppKit a et que GNUstep 0.29 n'a pas, hors la disposition : des constructeurs, et des
// réglages qui n'ont pas d'effet ici. Les contrôles eux-mêmes sont ceux de GNUstep.
#import <AppKit/AppKit.h>

#include <csignal>

@implementation NSApplication (Mac)

+ (void)load {
    [[NSNotificationCenter defaultCenter] addObserver:self
                                             selector:@selector(rendreLesSignaux:)
                                                 name:NSApplicationDidFinishLaunchingNotification
                                               object:nil];
}

// GNUstep se termine proprement à un signal d'arrêt, mais en réservant de la mémoire : s'il arrive
// pendant une autre réservation, il se bloque. AppKit laisse à ces signaux leur effet ordinaire.
+ (void)rendreLesSignaux:(NSNotification*)notification {
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
}

// Sans Dock ni autre application devant laquelle passer, il n'y a pas de politique.
- (BOOL)setActivationPolicy:(NSInteger)politique {
    return YES;
}

@end

// Rien ici ne restaure une fenêtre d'une ouverture à l'autre, ni ne retient la fin pendant une
// alerte.
@implementation NSWindow (Mac)

- (void)setRestorable:(BOOL)oui {
}

- (void)setPreventsApplicationTerminationWhenModal:(BOOL)oui {
}

@end

// Sur un Mac, clearContents prend le presse-papiers sans dire encore ce qui y viendra.
@implementation NSPasteboard (Mac)

- (NSInteger)clearContents {
    return [self declareTypes:[NSArray arrayWithObject:NSPasteboardTypeString] owner:nil];
}

@end

// Le contrôle d'AppKit passe sa taille à sa cellule, et prend la police qui va avec.
@implementation NSControl (Mac)

- (void)setControlSize:(NSControlSize)taille {
    [[self cell] setControlSize:taille];
    [self setFont:[NSFont systemFontOfSize:taille == NSSmallControlSize ? 11 : 13]];
}

- (NSLineBreakMode)lineBreakMode {
    return [[self cell] lineBreakMode];
}

@end

@implementation NSView (Mac)

// GNUstep ne présente rien aux aides à l'accessibilité : le texte est gardé où le robot le lit.
- (void)setAccessibilityLabel:(NSString*)texte {
    [self setToolTip:texte];
}

@end

@implementation NSButton (Mac)

+ (instancetype)buttonWithTitle:(NSString*)titre target:(id)cible action:(SEL)action {
    NSButton* bouton = [[[self alloc] initWithFrame:NSZeroRect] autorelease];
    [bouton setTitle:titre];
    [bouton setTarget:cible];
    [bouton setAction:action];
    [bouton setButtonType:NSMomentaryPushInButton];
    return bouton;
}

@end

@implementation NSTextField (Mac)

+ (instancetype)labelWithString:(NSString*)texte {
    NSTextField* etiquette = [[[self alloc] initWithFrame:NSZeroRect] autorelease];
    [etiquette setStringValue:texte];
    [etiquette setBordered:NO];
    [etiquette setBezeled:NO];
    [etiquette setDrawsBackground:NO];
    [etiquette setEditable:NO];
    [etiquette setSelectable:NO];
    return etiquette;
}

+ (instancetype)wrappingLabelWithString:(NSString*)texte {
    NSTextField* etiquette = [self labelWithString:texte];
    [etiquette setSelectable:YES];
    [[etiquette cell] setWraps:YES];
    return etiquette;
}

@end

@implementation NSImageView (Mac)

+ (instancetype)imageViewWithImage:(NSImage*)image {
    NSImageView* vue = [[[self alloc] initWithFrame:NSZeroRect] autorelease];
    [vue setImage:image];
    return vue;
}

@end
