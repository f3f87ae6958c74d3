#include "actions/reglages.hpp"

#include "actions/actions.hpp"
#include "plateforme/systeme_exploitation.hpp"
#include "support/systeme.hpp"

const char* adresseReglagesExtensions(std::int64_t versionMajeure) {
    // Les Préférences Système sont devenues les Réglages Système avec macOS 13.
    return versionMajeure >= 13
               ? "x-apple.systempreferences:com.apple.LoginItems-Settings.extension"
               : "x-apple.systempreferences:com.apple.preference.security";
}

void Actions::ouvrirReglagesExtensions() {
    Systeme::commande("/usr/bin/open",
                      {adresseReglagesExtensions(plateforme::versionSysteme().majorVersion)});
}
