// Le résultat d'un retrait : son verdict, sa lecture, et le script joué par le Terminal simulé.

#include "actions/actions.hpp"
#include "actions/resultat_retrait.hpp"
#include "commun/mac.hpp"
#include "diagnostic/diagnostic.hpp"

#include <sys/stat.h>

namespace fs = std::filesystem;

namespace {

const std::string kSauvegardes = "/Library/Application Support/Assistant Lumivia";
const std::string kExtensions[] = {Diagnostic::cheminD2xxHelper, Diagnostic::anciensKexts[0],
                                   Diagnostic::anciensKexts[1]};

class Terminal : public testing::Test {
protected:
    Terminal() {
        ::setenv("QT_QPA_PLATFORM", "offscreen", 1); // une personne simulée tape le mot de passe
        // Un nom de sauvegarde connu d'avance.
        mac.poserOutil("/usr/bin/date", "[ \"$*\" = +%Y%m%d-%H%M%S ] && echo 20250314-093012");
    }

    // Lance un retrait, attend son résultat, puis ferme la fenêtre.
    Actions::ResultatRetrait retirer(bool reconstruire) const {
        std::optional<Actions::ResultatRetrait> resultat;
        EXPECT_TRUE(Actions::lancerRetraitDansTerminal(reconstruire));
        EXPECT_TRUE(
            essai::attendre([&] { return (resultat = Actions::resultatRetrait()).has_value(); }));
        for (const auto& fenetre : fs::directory_iterator(mac.reel("/etat/fenetres"))) {
            fs::remove(fenetre);
        }
        EXPECT_TRUE(essai::attendre([&] { return fs::is_empty(mac.reel("/private/tmp")); }));
        for (const char* cache : {": lumivia", "/tmp/"}) {
            EXPECT_EQ(mac.lire("/etat/terminal").find(cache), std::string::npos) << cache;
        }
        return resultat.value_or(Actions::ResultatRetrait{});
    }

    const essai::Mac mac{"complet"};
    const fs::path sauvegarde = kSauvegardes + "/sauvegarde-20250314-093012";
    const std::string fin = "sauvegarde : " + sauvegarde.string() + "\n";
};

} // namespace

TEST(RetraitReussi, suitLaTableDesVerdicts) {
    const std::string marque = "mis de cote : x\nsauvegarde : /Library/y\n";
    const std::string demandee = "A system reboot is required for the operation\n";
    for (const bool encoreLa : {false, true}) {
        for (const std::int64_t version : {10, 12, 13, 15}) {
            EXPECT_FALSE(retraitReussi("Sauvegarde :", false, version, encoreLa));
            EXPECT_FALSE(retraitReussi(demandee, true, version, encoreLa));
            EXPECT_EQ(retraitReussi(marque, false, version, encoreLa), !encoreLa);
            EXPECT_EQ(retraitReussi(demandee + marque, true, version, encoreLa), !encoreLa);
            EXPECT_EQ(retraitReussi("No changes\n" + marque, true, version, encoreLa), !encoreLa);
            EXPECT_EQ(retraitReussi("no changes\n" + marque, true, version, encoreLa),
                      !encoreLa && version < 13);
        }
    }
}

TEST(ResultatRetrait, unFichierQuiNeSeLitPasNEstPasEncoreUnResultat) {
    const essai::Mac mac("pret");
    const std::string fichier = Actions::fichierResultat();
    const auto absent = [] { return !Actions::resultatRetrait().has_value(); };
    mac.poser(fichier + "/dedans", "un dossier à la place du fichier");
    EXPECT_TRUE(absent());
    mac.retirer(fichier);
    ASSERT_EQ(::mkfifo(mac.reel(fichier).c_str(), 0600), 0); // ne doit pas bloquer
    EXPECT_TRUE(absent());
    mac.retirer(fichier);
    mac.poser(fichier, "sauvegarde : /Users/Zo\xC3"); // écrit à moitié
    EXPECT_TRUE(absent());
    fs::resize_file(mac.reel(fichier), 0);
    EXPECT_FALSE(Actions::resultatRetrait()
                     .value_or(Actions::ResultatRetrait{"", true})
                     .ok);                            // vide, il en est un, mauvais
    fs::resize_file(mac.reel(fichier), 200UL << 20U); // énorme, et de l'UTF-8
    EXPECT_TRUE(absent());
}

TEST_F(Terminal, chaqueCombinaisonDExtensionsEstMiseDeCote) {
    for (unsigned combinaison = 0; combinaison < 16; ++combinaison) {
        const bool reconstruire = (combinaison & 8U) != 0;
        mac.retirer(kSauvegardes);
        mac.retirer("/etat/retraits_en_attente");
        std::string attendu;
        for (unsigned i = 0; i < 3; ++i) {
            mac.retirer(kExtensions[i]);
            if ((combinaison >> i & 1U) != 0) {
                mac.poser(kExtensions[i] + "/Contents/code", kExtensions[i]);
                attendu += "mis de cote : " + kExtensions[i] + "\n";
            }
        }
        attendu += reconstruire ? "Checking the auxiliary kernel collection...\n" : fin;
        const Actions::ResultatRetrait resultat = retirer(reconstruire);
        EXPECT_TRUE(resultat.ok);
        EXPECT_EQ(resultat.sortie.substr(0, attendu.size()), attendu);
        EXPECT_EQ(resultat.sortie.substr(resultat.sortie.rfind("sauvegarde : ")), fin);
        for (unsigned i = 0; i < 3; ++i) {
            EXPECT_FALSE(mac.existe(kExtensions[i]));
            const fs::path extension = kExtensions[i];
            EXPECT_EQ(mac.lire(sauvegarde / extension.filename() / "Contents/code"),
                      (combinaison >> i & 1U) != 0 ? kExtensions[i] : "");
        }
    }
}

// Aucun vrai sudo ne doit pouvoir être atteint.
TEST_F(Terminal, rienNeCommenceSiUnOutilPeutEtreCeluiDeLaMachine) {
    for (const std::string outil : {"sudo", "osascript", "kmutil"}) {
        const fs::path place = mac.reel("/usr/bin/" + outil);
        fs::rename(place, mac.reel("/garde"));
        fs::create_symlink("/usr/bin/true", place); // hors de la racine
        EXPECT_TRUE(Actions::lancerRetraitDansTerminal(true));
        const std::string refus = "L'outil " + outil + " manque au Mac simulé";
        EXPECT_TRUE(essai::attendre([&] {
            return mac.lire("/etat/terminal").find(refus) != std::string::npos;
        })) << outil;
        EXPECT_EQ(mac.elements("/etat/fenetres"), 0);
        fs::rename(mac.reel("/garde"), place);
    }
    EXPECT_TRUE(mac.existe(kExtensions[0]));
}
