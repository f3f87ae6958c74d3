#include "plateforme/preferences.hpp"
#include "plateforme/macos/textes.hpp"

namespace plateforme {

std::optional<std::string> lirePreference(const std::string& cle) {
    NSString* valeur = [NSUserDefaults.standardUserDefaults stringForKey:macos::versNSString(cle)];
    if (valeur == nil) {
        return std::nullopt;
    }
    return macos::versTexte(valeur);
}

void ecrirePreference(const std::string& cle, const std::string& valeur) {
    NSUserDefaults* preferences = NSUserDefaults.standardUserDefaults;
    [preferences setObject:macos::versNSString(valeur) forKey:macos::versNSString(cle)];
    [preferences synchronize];
}

void retirerPreference(const std::string& cle) {
    NSUserDefaults* preferences = NSUserDefaults.standardUserDefaults;
    [preferences removeObjectForKey:macos::versNSString(cle)];
    [preferences synchronize];
}

} // namespace plateforme
