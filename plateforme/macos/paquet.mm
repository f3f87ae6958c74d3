#include "plateforme/paquet.hpp"
#include "plateforme/macos/textes.hpp"

namespace plateforme {
namespace {

std::optional<std::string> cheminPresent(NSString* chemin) {
    if (chemin == nil) {
        return std::nullopt;
    }
    return macos::versTexte(chemin);
}

} // namespace

std::string cheminPaquet() { return macos::versTexte(NSBundle.mainBundle.bundlePath); }

std::optional<std::string> cheminRessource(const std::string& nom, const std::string& extension) {
    return cheminPresent([NSBundle.mainBundle URLForResource:macos::versNSString(nom)
                                               withExtension:macos::versNSString(extension)]
                             .path);
}

std::optional<std::string> cheminFrameworksPrives() {
    return cheminPresent(NSBundle.mainBundle.privateFrameworksPath);
}

ValeurInfo valeurInfo(const std::string& cle) {
    id valeur = [NSBundle.mainBundle objectForInfoDictionaryKey:macos::versNSString(cle)];
    if (valeur == nil) {
        return {};
    }
    if ([valeur isKindOfClass:NSString.class]) {
        return {ValeurInfo::Genre::texte, macos::versTexte(valeur)};
    }
    return {ValeurInfo::Genre::autre, macos::versTexte([valeur description])};
}

} // namespace plateforme
