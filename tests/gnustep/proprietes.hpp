// Les propriétés de plateforme/macos qu'un parcours ne montre pas. Chaque cas est un processus,
// dans l'espace d'un Mac simulé (./verifier), où la mémoire rendue est salie.
#pragma once

#import <AppKit/AppKit.h>

#include "plateforme/macos/vue_native.hpp"

#include <functional>
#include <gtest/gtest.h>

namespace essai {

using plateforme::Bouton;
using plateforme::Fenetre;
using plateforme::Orientation;
using plateforme::Pile;

class Bassin {
public:
    ~Bassin() { [bassin_ drain]; }

private:
    NSAutoreleasePool* bassin_ = [[NSAutoreleasePool alloc] init];
};

// Fait tourner la boucle jusqu'à ce que le prédicat soit vrai, ou jusqu'au bout du délai.
inline bool tourner(
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

inline NSEvent* touche(NSString* lettre, NSUInteger avec, bool tenue = false) {
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

class Proprietes : public testing::Test {
public:
    Proprietes() { [NSApplication sharedApplication]; }

private:
    Bassin bassin_;
};

} // namespace essai
