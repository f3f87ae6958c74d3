// L'écriture du script de retrait et sa remise au Terminal.

#include "actions/actions.hpp"
#include "commun/journal.hpp"
#include "commun/mac.hpp"

#include <sys/stat.h>

namespace fs = std::filesystem;

namespace {

const std::string kDossier = "/Users/L'été/Library/Application Support/Assistant Lumivia";
const std::string kScript = kDossier + "/retirer-ancien-pilote.command";
const std::string kImpossible = "Impossible d'écrire le script : « ";

// Le script attendu, que le Terminal simulé exécute aussi pour ses propres essais.
std::string modele(const std::string& resultat, const std::string& reconstruire) {
    std::string texte = essai::forme("retirer-ancien-pilote.command");
    texte.replace(texte.find("@RESULTAT@"), 10, resultat);
    return texte.replace(texte.find("@RECONSTRUIRE@"), 14, reconstruire);
}

const std::string kModele = modele(kDossier + "/resultat-retrait.txt", "oui");

class Retrait : public testing::Test {
protected:
    // Une apostrophe du dossier personnel entre telle quelle dans le script. « open » note ce qu'on
    // lui demande, et le résultat qui serait encore là.
    Retrait() {
        mac.poserEtat("utilisateur", "L'été");
        mac.poserOutil("/usr/bin/open",
                       "cd \"${0%/*}/../..\"; exec >>etat/ouvert; printf '%s|' \"$@\"\n"
                       "ls Users/*/Library/App*/*/resultat*; exit 0");
    }

    const essai::Mac mac;
    const std::string demande = "-a|Terminal|" + kScript + "|";
};

} // namespace

TEST_F(Retrait, leScriptEstEcritExecutable) {
    ::umask(077);
    EXPECT_TRUE(Actions::lancerRetraitDansTerminal(true));
    EXPECT_TRUE(Actions::reconstructionDemandee);
    EXPECT_EQ(mac.lire(kScript), kModele);
    EXPECT_EQ(fs::status(mac.reel(kScript)).permissions(), static_cast<fs::perms>(0755));
    fs::create_hard_link(mac.reel(kScript),
                         mac.reel("/Users/ouvert")); // comme un Terminal le tient
    // Un autre retrait le remplace, et le résultat du premier part avant l'ouverture.
    for (const std::string ancien : {"", "/dossier/plein"}) {
        mac.poser(Actions::fichierResultat() + ancien, "sauvegarde : ancienne\n");
        EXPECT_TRUE(Actions::lancerRetraitDansTerminal(false));
        EXPECT_FALSE(Actions::reconstructionDemandee);
        EXPECT_EQ(mac.lire(kScript), modele(Actions::fichierResultat(), "non"));
        EXPECT_EQ(mac.elements(kDossier), 1);
    }
    EXPECT_EQ(mac.lire("/Users/ouvert"), kModele) << "remplacé d'un coup, jamais réécrit sur place";
    EXPECT_EQ(mac.lire("/etat/ouvert"), demande + demande + demande);
}

TEST_F(Retrait, uneOuvertureRefuseeLaisseLeScriptEnPlace) {
    mac.poserOutil("/usr/bin/open", "exit 1");
    EXPECT_FALSE(Actions::lancerRetraitDansTerminal(true));
    mac.retirer("/usr/bin/open");
    EXPECT_FALSE(Actions::lancerRetraitDansTerminal(true));
    EXPECT_EQ(mac.lire(kScript), kModele);
}

TEST_F(Retrait, ceQuiTientLaPlaceEstNomme) {
    mac.poser(kDossier, "un fichier");
    EXPECT_FALSE(Actions::lancerRetraitDansTerminal(true));
    EXPECT_EQ(mac.lire(kDossier), "un fichier");
    mac.retirer(kDossier);
    mac.poser(kScript + "/dedans", "un dossier à la place du script");
    EXPECT_FALSE(Actions::lancerRetraitDansTerminal(false));
    EXPECT_EQ(mac.elements(kDossier), 1);
    const std::string fin = " » : un fichier se trouve à la place d'un dossier (erreur 20).";
    const std::string autre = " » : un dossier se trouve à la place du fichier (erreur 21).";
    EXPECT_EQ(essai::messages(),
              (essai::Messages{kImpossible + kDossier + fin, kImpossible + kScript + autre}));
    EXPECT_FALSE(mac.existe("/etat/ouvert"));
}
