#include "plateforme/alerte.hpp"
#include "plateforme/macos/textes.hpp"

#import <AppKit/AppKit.h>

namespace plateforme {

void alerte(const std::string& message, const std::string& information) {
    NSAlert* alerte = [[NSAlert alloc] init];
    alerte.messageText = macos::versNSString(message);
    alerte.informativeText = macos::versNSString(information);
    alerte.window.preventsApplicationTerminationWhenModal = NO; // ⌘Q termine aussi d'ici
    [alerte runModal];
}

} // namespace plateforme
