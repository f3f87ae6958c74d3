// La relance après le redémarrage, la demande de redémarrage et l'ouverture des Réglages.

#include "actions/actions.hpp"
#include "actions/reglages.hpp"
#include "commun/journal.hpp"
#include "commun/liste_relue.hpp"
#include "commun/mac.hpp"

namespace {

using essai::messages;
using essai::Messages;

const std::string kIdentifiant = "fr.voltaris.assistant-lumivia";

} // namespace

TEST(Relance, LAgentEstCeluiQueLaunchdAttendSousLIdentifiantDuPaquet) {
    const essai::Mac mac;
    const std::string agent = Actions::agentRelance();
    EXPECT_EQ(agent, mac.maison() + "/Library/LaunchAgents/" + kIdentifiant + ".relance.plist");
    EXPECT_FALSE(Actions::annulerRelance());
    mac.poser(agent, std::string(5000, 'x')); // un fichier plus long est remplacé en entier
    Actions::programmerRelance();
    EXPECT_EQ(essai::relireListe(mac.reel(agent), "sorted(d.items())"),
              "[('Label', '" + kIdentifiant +
                  ".relance'), ('ProgramArguments', ['/usr/bin/open', "
                  "'/Applications/Assistant Lumivia.app']), ('RunAtLoad', True)]");
    EXPECT_EQ(messages(), (Messages{"Relance automatique programmée après le redémarrage"}));
    EXPECT_TRUE(Actions::annulerRelance());
    EXPECT_FALSE(mac.existe(agent));
    Actions::programmerRelance();
    const auto dossier = mac.reel(agent).parent_path();
    std::filesystem::permissions(dossier, std::filesystem::perms(0555)); // root retire tout
    EXPECT_TRUE(Actions::annulerRelance()) << "un agent qui ne se retire pas compte quand même";
    std::filesystem::permissions(dossier, std::filesystem::perms(0755));
}

TEST(Relance, LeRedemarrageEstDemandeMemeSiElleEstImpossible) {
    const essai::Mac mac;
    const std::string dossier = mac.maison() + "/Library/LaunchAgents";
    mac.retirer(dossier);
    mac.poser(dossier, "un fichier");
    Actions::redemarrer();
    EXPECT_TRUE(mac.existe("/etat/redemarrage_demande"));
    EXPECT_EQ(mac.lire(dossier), "un fichier");
    EXPECT_FALSE(Actions::annulerRelance());
    const std::string fin = " » : un fichier se trouve à la place d'un dossier (erreur 20).";
    EXPECT_EQ(messages(), (Messages{"Redémarrage demandé",
                                    "Relance automatique impossible : « " + dossier + fin}));
}

// L'ouverture elle-même se voit à la trace : securite.demonstration.
TEST(Reglages, LAdresseSuitLaVersion) {
    const std::string prefixe = "x-apple.systempreferences:com.apple.";
    EXPECT_EQ(adresseReglagesExtensions(12), prefixe + "preference.security");
    EXPECT_EQ(adresseReglagesExtensions(13), prefixe + "LoginItems-Settings.extension");
}
