// L'écriture du script de retrait et sa remise au Terminal.

#include "actions/actions.hpp"
#include "actions/messages.hpp"
#include "actions/script_retrait.hpp"
#include "commun/limite.hpp"
#include "commun/mac.hpp"

#include <sys/stat.h>

namespace fs = std::filesystem;

namespace {

using essai::messages;
using essai::Messages;

const std::string kDossier = "/Users/Zoé du son/Library/Application Support/Assistant Lumivia";
const std::string kScript = kDossier + "/retirer-ancien-pilote.command";
const std::string kOuverture = "Retrait des anciens pilotes : ouverture du Terminal";
const std::string kImpossible = "Impossible d'écrire le script : « ";

// Le script attendu pour Zoé du son, avec reconstruction.
const std::string kModele = essai::contenu(MODELE);

std::string remplacer(std::string texte, const std::string& quoi, const std::string& par) {
    return texte.replace(texte.find(quoi), quoi.size(), par);
}

class Retrait : public testing::Test {
protected:
    Retrait() { ouvrirFinitPar("0"); }

    // « open » note ce qu'on lui demande et le résultat qui serait encore là.
    void ouvrirFinitPar(const std::string& code) const {
        mac.poserOutil("/usr/bin/open", "cd \"${0%/*}/../..\"\n"
                                        "printf '%s|' \"$@\" >>etat/ouvert\n"
                                        "ls Users/*/Library/App*/*/resultat* >>etat/ouvert\n"
                                        "exit " +
                                            code);
    }

    const essai::Mac mac;
    const std::string demande = "-a|Terminal|" + kScript + "|";
};

} // namespace

TEST(ScriptRetrait, EstCeluiAttenduOctetPourOctet) {
    const std::vector<std::string> extensions{"/Library/Extensions/D2xxHelper.kext",
                                              "/Library/Extensions/FTDIUSBSerialDriver.kext",
                                              "/Library/Extensions/FTDIKext.kext"};
    const std::string resultat = kDossier + "/resultat-retrait.txt";
    EXPECT_EQ(scriptRetrait(resultat, extensions, true), kModele);
    const std::string sans = remplacer(kModele, "\"oui\" = \"oui\"", "\"non\" = \"oui\"");
    EXPECT_EQ(scriptRetrait(resultat, extensions, false), sans);
    // Le dossier personnel entre tel quel, apostrophe comprise.
    EXPECT_EQ(scriptRetrait("/Users/d'Arc/r.txt", extensions, false),
              remplacer(sans, resultat, "/Users/d'Arc/r.txt"));
}

TEST_F(Retrait, LeScriptEstEcritExecutablePuisOuvert) {
    ::umask(077);
    EXPECT_TRUE(Actions::lancerRetraitDansTerminal(true));
    EXPECT_TRUE(Actions::reconstructionDemandee);
    EXPECT_EQ(mac.lire(kScript), kModele);
    EXPECT_EQ(fs::status(mac.reel(kScript)).permissions(), static_cast<fs::perms>(0755));
    // Un second retrait le remplace, et le résultat du premier part avant l'ouverture.
    for (const std::string ancien : {"", "/dossier/plein"}) {
        mac.poser(Actions::fichierResultat() + ancien, "sauvegarde : ancienne\n");
        EXPECT_TRUE(Actions::lancerRetraitDansTerminal(false));
        EXPECT_FALSE(Actions::reconstructionDemandee);
        EXPECT_EQ(mac.lire(kScript).find("\"oui\" = \"oui\""), std::string::npos);
        EXPECT_EQ(mac.elements(kDossier), 1);
    }
    EXPECT_EQ(mac.lire("/etat/ouvert"), demande + demande + demande);
    EXPECT_EQ(messages(), (Messages{kOuverture, kOuverture, kOuverture}));
}

TEST_F(Retrait, UneOuvertureRefuseeLaisseLeScriptEnPlace) {
    ouvrirFinitPar("1");
    EXPECT_FALSE(Actions::lancerRetraitDansTerminal(true));
    mac.retirer("/usr/bin/open");
    EXPECT_FALSE(Actions::lancerRetraitDansTerminal(true));
    EXPECT_EQ(mac.lire(kScript), kModele);
    EXPECT_EQ(messages(), (Messages{kOuverture, kOuverture}));
}

TEST_F(Retrait, CeQuiTientLaPlaceEstNommeEtRienNeSOuvre) {
    mac.poser(kDossier, "un fichier");
    EXPECT_FALSE(Actions::lancerRetraitDansTerminal(true));
    EXPECT_TRUE(Actions::reconstructionDemandee);
    EXPECT_EQ(mac.lire(kDossier), "un fichier");
    mac.retirer(kDossier);
    mac.poser(kScript + "/dedans", "un dossier à la place du script");
    EXPECT_FALSE(Actions::lancerRetraitDansTerminal(false));
    EXPECT_FALSE(Actions::reconstructionDemandee);
    EXPECT_EQ(mac.elements(kDossier), 1);
    EXPECT_EQ(messages(),
              (Messages{kImpossible + kDossier +
                            " » : un fichier se trouve à la place d'un dossier (erreur 20).",
                        kImpossible + kScript +
                            " » : un dossier se trouve à la place du fichier (erreur 21)."}));
    EXPECT_FALSE(mac.existe("/etat/ouvert"));
}

TEST_F(Retrait, UnDisquePleinNeLaisseAucuneMoitieDeScript) {
    for (const std::string ancien : {"", "#!/bin/zsh\nexit 0"}) {
        if (!ancien.empty()) {
            mac.poser(kScript, ancien);
        }
        const essai::Limite limite(RLIMIT_FSIZE, 1000);
        EXPECT_FALSE(Actions::lancerRetraitDansTerminal(true));
        EXPECT_EQ(mac.lire(kScript), ancien);
        EXPECT_EQ(mac.elements(kDossier), ancien.empty() ? 0 : 1);
        EXPECT_EQ(messages().back(), kImpossible + kScript +
                                         " » : le fichier dépasse la taille permise "
                                         "(erreur 27).");
    }
    EXPECT_FALSE(mac.existe("/etat/ouvert"));
}
