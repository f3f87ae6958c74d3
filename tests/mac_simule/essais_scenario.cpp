// La lecture des scénarios et la création d'un Mac.

#include "mac_simule/racine/scenario.hpp"

#include "mac_essai.hpp"

using namespace mac_simule;
namespace fs = std::filesystem;

namespace {

std::string erreurDe(const std::string& texte) {
    const auto lu = lireScenario(texte);
    const auto* erreur = std::get_if<std::string>(&lu);
    return erreur == nullptr ? "" : *erreur;
}

} // namespace

TEST(Scenario, CeQuiNeSeLitPasEstDitAvecSaLigne) {
    EXPECT_EQ(erreurDe("# x\nversoin 14\n"), "ligne 2 : la clé « versoin » est inconnue");
    EXPECT_EQ(erreurDe("puce apple\npuce apple"), "ligne 2 : la clé « puce » est déjà donnée");
    std::istringstream fautes(
        "version;version 14;version 14.;version 14.5.;version a.b;version 14.5.0.1;"
        "version 99999.1;version 14. 5;puce arm;compte invite;modele;utilisateur ../x;"
        "utilisateur d'été;utilisateur .x;emetteur_nombre x;"
        "peripherique 0x403 0x6001;kext .kext;kext a/b.kext;kext D2xx;charge a 1;"
        "charge a 1 x;extension_ftdi oui;kmutil;puce_dmx x;vitesse_horloge 0;"
        "vitesse_horloge -1;terminal_ferme oui;geste Page;geste | Bouton;fin;"
        "fin a\x01");
    for (std::string ligne; std::getline(fautes, ligne, ';');) {
        EXPECT_NE(erreurDe(ligne), "") << ligne;
    }
}

TEST(CreerMac, UneDemandeImpossibleSeDitEnUnePhraseEtNeCreeRien) {
    const MacEssai hote("pret"); // pour son dossier, que l'essai emporte à sa fin
    const fs::path d = hote.reel("/essai été");
    hote.poser("/essai été/faux.scenario", "puce arm\n");
    const std::string ici = " --scenarios " + cite(d);
    for (const auto& [suite, phrase] : std::initializer_list<std::pair<std::string, std::string>>{
             {"--scenario inconnu " + cite(d / "m"), "n'existe pas"},
             {"--scenario faux" + ici + " " + cite(d / "m"), "ligne 1"},
             {"--scenario pret " + cite(d / "absent/m"), "n'existe pas"},
             {"--scenario pret --outils /nulle/part " + cite(d / "m"), "outils"},
             {"--scenario pret", "Usage"},
             {"--verifier " + cite(d), "n'est pas un Mac"}}) {
        const Systeme::Resultat refus = lancer(cite(CREER_MAC) + " " + suite);
        EXPECT_EQ(refus.code, 2) << suite;
        EXPECT_TRUE(contient(refus.sortie, phrase)) << refus.sortie;
    }
    // Un échec en cours de route ne laisse rien : ici un fichier tient la place d'un dossier.
    hote.poser("/outils/Library", "");
    hote.poser("/outils/usr/x", "");
    const Systeme::Resultat refus = lancer(cite(CREER_MAC) + " --scenario pret --outils " +
                                           cite(hote.reel("/outils")) + " " + cite(d / "m"));
    EXPECT_EQ(refus.code, 2) << refus.sortie;
    EXPECT_EQ(lancer("ls -A " + cite(d)).sortie, "faux.scenario\n");
}

TEST(CreerMac, UnMacAbimeSeDitEnNommantCeQuiLuiManque) {
    const MacEssai mac("pret");
    const std::string verifier = cite(CREER_MAC) + " --verifier " + cite(mac.racine());
    std::vector<fs::path> pieces{"etat/usb",          "etat/debranches", "etat/fenetres",
                                 "private/tmp",       "private/var/log", "Applications",
                                 "Library/Extensions"};
    for (const char* outils : {"usr", "System"}) {
        for (const auto& entree : fs::recursive_directory_iterator(mac.racine() / outils)) {
            if (entree.is_regular_file() && entree.path().extension() != ".plist") {
                pieces.push_back(fs::relative(entree, mac.racine()));
            }
        }
    }
    for (const fs::path& piece : pieces) {
        fs::rename(mac.racine() / piece, mac.racine() / "ailleurs");
        const Systeme::Resultat refus = lancer(verifier);
        EXPECT_EQ(refus.code, 2) << piece;
        EXPECT_TRUE(contient(refus.sortie, "il manque « " + piece.string())) << refus.sortie;
        fs::rename(mac.racine() / "ailleurs", mac.racine() / piece);
    }
    fs::permissions(mac.reel("/usr/sbin/sysctl"), fs::perms::none); // une panne, pas un manque
    EXPECT_EQ(lancer(verifier).code, 0);
}
