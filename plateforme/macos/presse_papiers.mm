#include "plateforme/presse_papiers.hpp"
#include "plateforme/macos/textes.hpp"

#import <AppKit/AppKit.h>

namespace plateforme {

void copierTexte(const std::string& texte) {
    NSPasteboard* general = NSPasteboard.generalPasteboard;
    [general clearContents];
    [general setString:macos::versNSString(texte) forType:NSPasteboardTypeString];
}

} // namespace plateforme
