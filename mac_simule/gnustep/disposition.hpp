// La disposition des vues, dont GNUstep 0.29 n'a que les déclarations (disposition.mm).
#pragma once

#import <AppKit/AppKit.h>

@interface NSStackView : NSView {
    NSMutableArray* rangees_;
    BOOL verticale_;
    BOOL prevue_;
    NSLayoutAttribute alignement_;
    CGFloat espacement_;
    NSEdgeInsets marges_;
}
- (NSSize)tailleVoulue;
- (void)disposer;
- (void)prevoirLaDisposition;
@end

// Envoyée quand une page vient d'être mise en place.
extern NSString* const PageDisposee;
