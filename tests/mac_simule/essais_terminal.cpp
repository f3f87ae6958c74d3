// Le script de retrait joué par le Terminal simulé, sans écran.

#include "mac_essai.hpp"

#include <fstream>

namespace fs = std::filesystem;

namespace {

const std::string kDossier = "Library/Application Support/Assistant Lumivia";

class Terminal : public testing::Test {
protected:
    // Écrit le script dans le dossier de l'assistant et l'ouvre ; rend le fichier du résultat.
    static fs::path ouvrir(const MacEssai& mac, const std::string& reconstruire = "oui") {
        const fs::path dossier = mac.maison() / kDossier;
        fs::path resultat = dossier / "resultat-retrait.txt";
        std::string texte = forme("retirer-ancien-pilote.command");
        remplacer(texte, "@RESULTAT@", cheminMac(mac, resultat));
        remplacer(texte, "@RECONSTRUIRE@", reconstruire);
        const fs::path script = dossier / "retirer-ancien-pilote.command";
        fs::create_directories(dossier);
        mac_simule::ecrireFichier(script, texte);
        fs::permissions(script, fs::perms(0755));
        EXPECT_EQ(mac.outil("/usr/bin/open -a Terminal " + cite(cheminMac(mac, script))).code, 0);
        return resultat;
    }

    static std::string lireResultat(const fs::path& resultat) {
        EXPECT_TRUE(attendre([&] { return fs::exists(resultat); }));
        return mac_simule::lireFichier(resultat);
    }

    static bool sansFenetre(const MacEssai& mac) {
        return attendre([&] { return fs::is_empty(mac.racine() / "etat/fenetres"); });
    }

    // Ferme ce qui reste ouvert et attend que plus rien ne lise la racine.
    static void fermer(const MacEssai& mac) {
        for (const auto& fenetre : fs::directory_iterator(mac.racine() / "etat/fenetres")) {
            fs::remove(fenetre);
        }
        EXPECT_TRUE(attendre([&] { return fs::is_empty(mac.racine() / "private/tmp"); }));
    }

private:
    static std::string cheminMac(const MacEssai& mac, const fs::path& chemin) {
        return chemin.string().substr(mac.racine().string().size());
    }

    static void remplacer(std::string& texte, const std::string& quoi, const std::string& par) {
        texte.replace(texte.find(quoi), quoi.size(), par);
    }
};

bool contient(const std::string& texte, const std::string& morceau) {
    return texte.find(morceau) != std::string::npos;
}

} // namespace

TEST_F(Terminal, LeRetraitDeplaceLesExtensionsEtNeMontreQueDesCheminsDeMac) {
    const MacEssai mac("complet");
    const std::string resultat = lireResultat(ouvrir(mac));
    const std::string rebuild = forme("kmutil-rebuild-retrait.txt");
    const std::string debut = "mis de cote : /Library/Extensions/D2xxHelper.kext\n"
                              "mis de cote : /Library/Extensions/FTDIUSBSerialDriver.kext\n"
                              "mis de cote : /Library/Extensions/FTDIKext.kext\n" +
                              rebuild + "sauvegarde : ";
    ASSERT_EQ(resultat.substr(0, debut.size()), debut);
    const std::string sauvegarde =
        resultat.substr(debut.size(), resultat.size() - debut.size() - 1);
    EXPECT_EQ(sauvegarde.rfind("/Library/Application Support/Assistant Lumivia/sauvegarde-", 0),
              0U);
    EXPECT_TRUE(mac.existe(sauvegarde + "/D2xxHelper.kext/Contents/Info.plist"));
    EXPECT_TRUE(mac.existe(sauvegarde + "/FTDIKext.kext"));
    EXPECT_TRUE(fs::is_empty(mac.racine() / "Library/Extensions"));

    // La fenêtre se ferme d'elle-même, et il ne reste rien d'elle.
    EXPECT_TRUE(sansFenetre(mac));
    fermer(mac);
    const std::string affiche = mac.fait("terminal");
    EXPECT_TRUE(contient(affiche, "Mot de passe : "));
    EXPECT_TRUE(contient(affiche, "Terminé. Cette fenêtre va se fermer."));
    EXPECT_TRUE(contient(affiche, "mis de cote : /Library"));
    EXPECT_FALSE(contient(affiche, "lumivia\r")); // le mot de passe ne s'affiche pas
    EXPECT_FALSE(contient(affiche, "/tmp/mac-"));
}

TEST_F(Terminal, LaReconstructionSuitLaDemandeEtLaVersion) {
    const MacEssai sans("complet");
    EXPECT_FALSE(contient(lireResultat(ouvrir(sans, "non")), "kernel collection"));
    const MacEssai ancien("ancien-macos");
    EXPECT_TRUE(contient(lireResultat(ouvrir(ancien)), "KernelCache ID"));
    const MacEssai onze("complet");
    onze.poser("version", "11.2\n");
    const std::string resultat = lireResultat(ouvrir(onze));
    EXPECT_FALSE(contient(resultat, "kernel collection"));
    EXPECT_TRUE(contient(resultat, "sauvegarde : "));
    for (const auto* mac : {&sans, &ancien, &onze}) {
        fermer(*mac);
    }
}

TEST_F(Terminal, TroisMotsDePasseFauxNeTouchentARien) {
    const MacEssai mac("mot-de-passe-refuse");
    EXPECT_EQ(lireResultat(ouvrir(mac)), "Sorry, try again.\nSorry, try again.\n"
                                         "sudo: 3 incorrect password attempts\n");
    EXPECT_TRUE(mac.existe("/Library/Extensions/D2xxHelper.kext"));
    EXPECT_TRUE(fs::is_empty(mac.racine() / "Library/Application Support"));
    fermer(mac);
}

TEST_F(Terminal, UnMotDePasseFauxPuisLeBonSuffisent) {
    const MacEssai mac("complet");
    mac.poser("frappe", "faux\nlumivia\n");
    const std::string resultat = lireResultat(ouvrir(mac));
    EXPECT_EQ(resultat.rfind("Sorry, try again.\nmis de cote : ", 0), 0U);
    fermer(mac);
}

TEST_F(Terminal, UneFenetreFermeeArreteLeScriptSansResultat) {
    const MacEssai mac("terminal-ferme");
    const fs::path resultat = ouvrir(mac);
    EXPECT_TRUE(attendre([&] { return contient(mac.fait("terminal"), "Mot de passe : "); }));
    EXPECT_TRUE(sansFenetre(mac));
    EXPECT_TRUE(attendre([&] { return !mac.habite(); })); // zsh et sudo ont reçu SIGHUP
    EXPECT_FALSE(fs::exists(resultat));
    EXPECT_TRUE(mac.existe("/Library/Extensions/D2xxHelper.kext"));
}

TEST_F(Terminal, RienNeCommenceSiSudoPeutEtreCeluiDeLaMachine) {
    for (const char* outil : {"sudo", "osascript", "kmutil"}) {
        const MacEssai mac("complet");
        const fs::path chemin = mac.racine() / "usr/bin" / outil;
        fs::remove(chemin);
        fs::create_symlink("/usr/bin/true", chemin); // hors de la racine
        const fs::path resultat = ouvrir(mac);
        EXPECT_TRUE(attendre([&] { return contient(mac.fait("terminal"), "ne lance rien"); }));
        EXPECT_FALSE(contient(mac.fait("terminal"), "Mot de passe"));
        EXPECT_TRUE(fs::is_empty(mac.racine() / "etat/fenetres"));
        EXPECT_FALSE(fs::exists(resultat));
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
    EXPECT_TRUE(fs::is_empty(mac.racine() / "Library/Extensions"));
}
