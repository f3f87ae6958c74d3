// Des piles, des ancres et des contraintes : juste ce qu'il faut pour poser les pages de
// l'assistant.
//
// C'est notre modèle, pas celui d'Apple, qui résout toutes les contraintes ensemble, avec leurs
// priorités, et que rien d'ici n'imite : ni les places, ni les tailles ne se comparent à celles
// d'un Mac. Sont justes l'ordre des vues, ce qui contient quoi, et ce qui se voit.
#import "mac_simule/gnustep/disposition.hpp"

#include "mac_simule/gnustep/attaches.hpp"

#include <algorithm>
#include <cmath>

NSString* const PageDisposee = @"PageDisposee";

// Un côté d'une vue, ou une de ses dimensions.
@interface Ancre : NSObject {
  @public
    NSView* vue;
    NSLayoutAttribute cote;
}
@end

// L'égalité d'une ancre et d'une autre, ou d'une constante. Les deux vues sont tenues par l'arbre.
@interface Egalite : NSObject {
  @public
    NSView* vue;
    NSView* autre;
    NSLayoutAttribute cote;
    CGFloat ecart;
}
@end

@implementation Egalite
@end

@implementation Ancre

- (Egalite*)constraintEqualToAnchor:(Ancre*)ancre constant:(CGFloat)ecart {
    Egalite* egalite = [[[Egalite alloc] init] autorelease];
    egalite->vue = vue;
    egalite->autre = ancre == nil ? nil : ancre->vue;
    egalite->cote = cote;
    egalite->ecart = ecart;
    return egalite;
}

- (Egalite*)constraintEqualToAnchor:(Ancre*)ancre {
    return [self constraintEqualToAnchor:ancre constant:0];
}

- (Egalite*)constraintEqualToConstant:(CGFloat)valeur {
    return [self constraintEqualToAnchor:nil constant:valeur];
}

@end

namespace {

const char kEgalites = 0;
const char kLargeurMaximale = 0;

Ancre* ancre(NSView* vue, NSLayoutAttribute cote) {
    Ancre* nouvelle = [[[Ancre alloc] init] autorelease];
    nouvelle->vue = vue;
    nouvelle->cote = cote;
    return nouvelle;
}

} // namespace

namespace {

// Une cellule de GNUstep écrit son texte à deux points de ses bords.
NSSize tailleDeLEtiquette(NSTextField* etiquette) {
    NSNumber* maximum = objc_getAssociatedObject(etiquette, &kLargeurMaximale);
    const CGFloat largeur = maximum == nil ? 10000 : [maximum doubleValue];
    const NSRect texte = [[etiquette attributedStringValue]
        boundingRectWithSize:NSMakeSize(largeur - 6, 10000)
                     options:NSStringDrawingUsesLineFragmentOrigin];
    return NSMakeSize(std::ceil(texte.size.width) + 6, std::ceil(texte.size.height) + 2);
}

NSSize tailleDuControle(NSControl* controle) {
    const NSSize taille = [[controle cell] cellSize];
    return NSMakeSize(std::ceil(taille.width) + 24, std::max(std::ceil(taille.height), 24.0));
}

NSSize tailleVoulue(NSView* vue) {
    NSSize taille = NSZeroSize;
    if ([vue isKindOfClass:[NSStackView class]]) {
        taille = [static_cast<NSStackView*>(vue) tailleVoulue];
    } else if ([vue isKindOfClass:[NSTextField class]]) {
        taille = tailleDeLEtiquette(static_cast<NSTextField*>(vue));
    } else if ([vue isKindOfClass:[NSControl class]]) {
        taille = tailleDuControle(static_cast<NSControl*>(vue));
    }
    for (Egalite* egalite in objc_getAssociatedObject(vue, &kEgalites)) {
        const CGFloat reference = egalite->autre == nil ? 0 : [egalite->autre frame].size.width;
        (egalite->cote == NSLayoutAttributeWidth ? taille.width : taille.height) =
            reference + egalite->ecart;
    }
    return taille;
}

// Une vue nue ne sert qu'à prendre la place libre.
bool estVide(NSView* vue) { return [vue isMemberOfClass:[NSView class]]; }

// Ce qu'une vue laisse au-dessus d'elle dans une pile horizontale. Un texte y est un peu plus haut
// que le milieu : sa ligne de base est celle des boutons.
CGFloat auDessus(NSView* vue, NSLayoutAttribute alignement, CGFloat libre) {
    if (alignement == NSLayoutAttributeTop) {
        return 0;
    }
    return libre / 2 - ([vue isKindOfClass:[NSTextField class]] ? 5 : 0);
}

} // namespace

@implementation NSView (Disposition)

- (void)setTranslatesAutoresizingMaskIntoConstraints:(BOOL)oui {
}

- (void)setContentHuggingPriority:(float)priorite forOrientation:(NSInteger)sens {
}

- (id)leadingAnchor {
    return ancre(self, NSLayoutAttributeLeading);
}

- (id)trailingAnchor {
    return ancre(self, NSLayoutAttributeTrailing);
}

- (id)topAnchor {
    return ancre(self, NSLayoutAttributeTop);
}

- (id)bottomAnchor {
    return ancre(self, NSLayoutAttributeBottom);
}

- (id)widthAnchor {
    return ancre(self, NSLayoutAttributeWidth);
}

- (id)heightAnchor {
    return ancre(self, NSLayoutAttributeHeight);
}

@end

@implementation NSTextField (Disposition)

// Un texte nouveau change la place de ceux qui le suivent.
- (void)setStringValue:(NSString*)texte {
    [super setStringValue:texte];
    if ([[self superview] isKindOfClass:[NSStackView class]]) {
        [static_cast<NSStackView*>([self superview]) prevoirLaDisposition];
    }
}

- (void)setAttributedStringValue:(NSAttributedString*)texte {
    [super setAttributedStringValue:texte];
    if ([[self superview] isKindOfClass:[NSStackView class]]) {
        [static_cast<NSStackView*>([self superview]) prevoirLaDisposition];
    }
}

- (void)setPreferredMaxLayoutWidth:(CGFloat)largeur {
    objc_setAssociatedObject(self, &kLargeurMaximale, [NSNumber numberWithDouble:largeur],
                             OBJC_ASSOCIATION_RETAIN_NONATOMIC);
}

@end

// Une vue liée par ses bords à une autre la remplit et la suit ; une dimension se retient.
@implementation NSLayoutConstraint (Disposition)

+ (void)activateConstraints:(NSArray*)egalites {
    for (Egalite* egalite in egalites) {
        NSView* vue = egalite->vue;
        if (egalite->cote != NSLayoutAttributeWidth && egalite->cote != NSLayoutAttributeHeight) {
            [vue setFrame:[egalite->autre bounds]];
            [vue setAutoresizingMask:NSViewWidthSizable | NSViewHeightSizable];
            continue;
        }
        NSMutableArray* retenues = objc_getAssociatedObject(vue, &kEgalites);
        if (retenues == nil) {
            retenues = [NSMutableArray array];
            objc_setAssociatedObject(vue, &kEgalites, retenues, OBJC_ASSOCIATION_RETAIN_NONATOMIC);
        }
        [retenues addObject:egalite];
    }
}

@end

@implementation NSStackView

- (instancetype)initWithFrame:(NSRect)cadre {
    self = [super initWithFrame:cadre];
    rangees_ = [[NSMutableArray alloc] init];
    espacement_ = 8;
    return self;
}

- (instancetype)init {
    return [self initWithFrame:NSZeroRect];
}

- (void)dealloc {
    [NSObject cancelPreviousPerformRequestsWithTarget:self];
    [rangees_ release];
    rangees_ = nil; // la suite y retire encore ses sous-vues
    [super dealloc];
}

- (BOOL)isFlipped {
    return YES;
}

- (void)setOrientation:(NSInteger)sens {
    verticale_ = sens == 1;
}

- (void)setAlignment:(NSLayoutAttribute)alignement {
    alignement_ = alignement;
}

- (void)setSpacing:(CGFloat)espacement {
    espacement_ = espacement;
}

- (void)setEdgeInsets:(NSEdgeInsets)marges {
    marges_ = marges;
}

- (NSArray*)arrangedSubviews {
    return [[rangees_ copy] autorelease];
}

- (void)addArrangedSubview:(NSView*)vue {
    [rangees_ addObject:vue];
    [self addSubview:vue];
    [self prevoirLaDisposition];
}

- (void)willRemoveSubview:(NSView*)vue {
    [rangees_ removeObjectIdenticalTo:vue];
    [super willRemoveSubview:vue];
    [self prevoirLaDisposition];
}

// La pile du dessus les dispose toutes, une fois, au tour de boucle suivant.
- (void)prevoirLaDisposition {
    if ([[self superview] isKindOfClass:[NSStackView class]]) {
        [static_cast<NSStackView*>([self superview]) prevoirLaDisposition];
    } else if (!prevue_ && rangees_ != nil) {
        prevue_ = YES;
        [self performSelector:@selector(disposerLaPage)
                   withObject:nil
                   afterDelay:0
                      inModes:[NSArray arrayWithObjects:NSDefaultRunLoopMode,
                                                        NSModalPanelRunLoopMode, nil]];
    }
}

- (void)disposerLaPage {
    prevue_ = NO;
    [self disposer];
    [self setNeedsDisplay:YES];
    [[NSNotificationCenter defaultCenter] postNotificationName:PageDisposee object:self];
}

- (NSSize)tailleVoulue {
    CGFloat somme = 0;
    CGFloat travers = 0;
    for (NSView* vue in rangees_) {
        const NSSize taille = tailleVoulue(vue);
        somme += (verticale_ ? taille.height : taille.width) + espacement_;
        travers = std::max(travers, verticale_ ? taille.width : taille.height);
    }
    somme -= [rangees_ count] == 0 ? 0 : espacement_;
    return NSMakeSize((verticale_ ? travers : somme) + marges_.left + marges_.right,
                      (verticale_ ? somme : travers) + marges_.top + marges_.bottom);
}

- (void)disposer {
    const NSSize place = [self frame].size;
    const NSSize voulue = [self tailleVoulue];
    CGFloat libre = verticale_ ? place.height - voulue.height : place.width - voulue.width;
    CGFloat x = marges_.left;
    CGFloat y = marges_.top;
    for (NSView* vue in rangees_) {
        NSSize taille = tailleVoulue(vue);
        if (estVide(vue)) {
            (verticale_ ? taille.height : taille.width) += std::max(libre, 0.0);
            libre = 0;
        }
        const CGFloat ecart =
            verticale_ ? 0 : auDessus(vue, alignement_, place.height - taille.height);
        [vue setFrame:NSMakeRect(x, y + ecart, taille.width, taille.height)];
        if ([vue isKindOfClass:[NSStackView class]]) {
            [static_cast<NSStackView*>(vue) disposer];
        }
        (verticale_ ? y : x) += espacement_ + (verticale_ ? taille.height : taille.width);
    }
}

@end
