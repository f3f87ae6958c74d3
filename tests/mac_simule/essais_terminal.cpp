// Le script de retrait joué par le Terminal simulé, sans écran.

#include "mac_essai.hpp"

namespace fs = std::filesystem;

namespace {

const std::string kResultat = "/Library/Application Support/resultat-retrait.txt";

class Terminal : public testing::Test {
protected:
    // Écrit le script dans le dossier de l'assistant et l'ouvre.
    static void ouvrir(const MacEssai& mac) {
        std::string texte = forme("retirer-ancien-pilote.command");
        remplacer(texte, "@RESULTAT@", mac.maison() + kResultat);
        remplacer(texte, "@RECONSTRUIRE@", "oui");
        const std::string script = mac.maison() + "/Library/retirer-ancien-pilote.command";
        mac.poser(script, texte);
        fs::permissions(mac.reel(script), fs::perms(0755));
        EXPECT_EQ(mac.outil("/usr/bin/open -a Terminal " + cite(script)).code, 0);
    }

    static bool sansFenetre(const MacEssai& mac) {
        return attendre([&] { return mac.elements("/etat/fenetres") == 0; });
    }

    // Ferme ce qui reste ouvert et attend que plus rien ne lise la racine.
    static void fermer(const MacEssai& mac) {
        for (const auto& fenetre : fs::directory_iterator(mac.racine() / "etat/fenetres")) {
            fs::remove(fenetre);
        }
        EXPECT_TRUE(attendre([&] { return mac.elements("/private/tmp") == 0; }));
    }

private:
    static void remplacer(std::string& texte, const std::string& quoi, const std::string& par) {
        texte.replace(texte.find(quoi), quoi.size(), par);
    }
};

} // namespace

TEST_F(Terminal, LeRetraitDeplaceLesExtensionsEtNeMontreQueDesCheminsDeMac) {
    const MacEssai mac("complet");
    mac.poserEtat("frappe", "faux\nlumivia\n");
    ouvrir(mac);
    EXPECT_TRUE(attendre([&] { return mac.existe(mac.maison() + kResultat); }));
    const std::string resultat = mac.lire(mac.maison() + kResultat);
    const std::string debut = "Sorry, try again.\n"
                              "mis de cote : /Library/Extensions/D2xxHelper.kext\n"
                              "mis de cote : /Library/Extensions/FTDIUSBSerialDriver.kext\n"
                              "mis de cote : /Library/Extensions/FTDIKext.kext\n" +
                              forme("kmutil-rebuild-retrait.txt") + "sauvegarde : ";
    ASSERT_EQ(resultat.substr(0, debut.size()), debut);
    const std::string sauvegarde =
        resultat.substr(debut.size(), resultat.size() - debut.size() - 1);
    EXPECT_EQ(sauvegarde.rfind("/Library/Application Support/Assistant Lumivia/sauvegarde-", 0),
              0U);
    EXPECT_TRUE(mac.existe(sauvegarde + "/D2xxHelper.kext/Contents/Info.plist"));
    EXPECT_TRUE(mac.existe(sauvegarde + "/FTDIKext.kext"));
    EXPECT_EQ(mac.elements("/Library/Extensions"), 0);

    // La fenêtre se ferme d'elle-même, et il ne reste rien d'elle.
    EXPECT_TRUE(sansFenetre(mac));
    fermer(mac);
    const std::string affiche = mac.fait("terminal");
    EXPECT_TRUE(contient(affiche, "Mot de passe : "));
    EXPECT_TRUE(contient(affiche, "Terminé. Cette fenêtre va se fermer."));
    EXPECT_TRUE(contient(affiche, "mis de cote : /Library"));
    EXPECT_FALSE(contient(affiche, "lumivia\r")); // le mot de passe ne s'affiche pas
    EXPECT_FALSE(contient(affiche, mac.racine().parent_path()));
}

TEST_F(Terminal, UneFenetreFermeeArreteLeScriptSansResultat) {
    const MacEssai mac("terminal-ferme");
    ouvrir(mac);
    EXPECT_TRUE(attendre([&] { return contient(mac.fait("terminal"), "Mot de passe : "); }));
    EXPECT_TRUE(sansFenetre(mac));
    EXPECT_TRUE(attendre([&] { return !mac.habite(); })); // zsh et sudo ont reçu SIGHUP
    EXPECT_FALSE(mac.existe(mac.maison() + kResultat));
    EXPECT_TRUE(mac.existe("/Library/Extensions/D2xxHelper.kext"));
}

TEST_F(Terminal, RienNeCommenceSiSudoPeutEtreCeluiDeLaMachine) {
    for (const char* outil : {"sudo", "osascript", "kmutil"}) {
        const MacEssai mac("complet");
        const fs::path chemin = mac.racine() / "usr/bin" / outil;
        fs::remove(chemin);
        fs::create_symlink("/usr/bin/true", chemin); // hors de la racine
        ouvrir(mac);
        EXPECT_TRUE(attendre([&] { return contient(mac.fait("terminal"), "ne lance rien"); }));
        EXPECT_FALSE(contient(mac.fait("terminal"), "Mot de passe"));
        EXPECT_TRUE(mac.elements("/etat/fenetres") == 0);
        EXPECT_FALSE(mac.existe(mac.maison() + kResultat));
    }
}

// « Recommencer » pressé dix fois : dix scripts se disputent les mêmes dossiers.
TEST_F(Terminal, DixFenetresALaFoisNePerdentRien) {
    const MacEssai mac("complet");
    for (int i = 0; i < 10; ++i) {
        ouvrir(mac);
    }
    EXPECT_TRUE(sansFenetre(mac));
    fermer(mac);
    const std::string trouver =
        "find " + cite(mac.racine() / "Library") + " -name Info.plist | wc -l";
    EXPECT_EQ(lancer(trouver).sortie, "3\n");
    EXPECT_EQ(mac.elements("/Library/Extensions"), 0);
}
