// La relance après le redémarrage, la demande de redémarrage et l'ouverture des Réglages.

#include "actions/actions.hpp"
#include "actions/reglages.hpp"
#include "commun/liste_relue.hpp"
#include "commun/mac.hpp"

#include <sys/stat.h>

namespace {

const std::string kIdentifiant = "fr.voltaris.assistant-lumivia";

} // namespace

TEST(Relance, lAgentEstCeluiQueLaunchdAttend) {
    const essai::Mac mac;
    const std::string agent = Actions::agentRelance();
    EXPECT_EQ(agent, mac.maison() + "/Library/LaunchAgents/" + kIdentifiant + ".relance.plist");
    EXPECT_FALSE(Actions::annulerRelance());
    ::umask(022);
    mac.retirer(mac.maison() + "/Library");
    Actions::programmerRelance();
    EXPECT_EQ(std::filesystem::status(mac.reel(agent).parent_path()).permissions(),
              std::filesystem::perms(0755));
    mac.poser(agent, std::string(5000, 'x')); // un fichier plus long est remplacé en entier
    Actions::programmerRelance();
    EXPECT_EQ(essai::relireListe(mac.reel(agent), "sorted(d.items())"),
              "[('Label', '" + kIdentifiant +
                  ".relance'), ('ProgramArguments', ['/usr/bin/open', "
                  "'/Applications/Assistant Lumivia.app']), ('RunAtLoad', True)]");
    EXPECT_TRUE(Actions::annulerRelance());
    EXPECT_FALSE(mac.existe(agent));
}

// L'ouverture elle-même se voit à la trace : securite.demonstration.
TEST(Reglages, lAdresseSuitLaVersion) {
    const std::string prefixe = "x-apple.systempreferences:com.apple.";
    EXPECT_EQ(adresseReglagesExtensions(12), prefixe + "preference.security");
    EXPECT_EQ(adresseReglagesExtensions(13), prefixe + "LoginItems-Settings.extension");
}
