// Passage entre les textes du système (NSString) et ceux du programme (UTF-8). Réservé à ce
// dossier.
#pragma once

#include "plateforme/posix/typographie.hpp"

#import <Foundation/Foundation.h>

#include <string>

namespace plateforme::macos {

// Un texte qui n'est pas de l'UTF-8 correct devient vide : AppKit lève une exception sur nil.
inline NSString* versNSString(const std::string& texte) {
    NSString* converti = [[NSString alloc] initWithBytes:texte.data()
                                                  length:texte.size()
                                                encoding:NSUTF8StringEncoding];
    return converti != nil ? converti : @"";
}

// Vide pour nil, et pour le texte que l'UTF-8 ne sait pas écrire (demi-codet isolé).
inline std::string versTexte(NSString* texte) {
    const char* octets = texte.UTF8String;
    return octets != nullptr ? std::string(octets) : std::string();
}

// Le texte d'origine de ce qu'une étiquette montre, ou d'une partie.
inline NSString* sansLiens(NSString* texte) {
    return versNSString(delier(versTexte(texte)));
}

} // namespace plateforme::macos
