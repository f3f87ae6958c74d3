// La lecture des scénarios et la création d'un Mac.

#include "mac_essai.hpp"

namespace fs = std::filesystem;

TEST(Scenario, ceQuiNeSeLitPasEstDitAvecSaLigne) {
    const MacEssai hote("pret"); // pour son dossier, que l'essai emporte à sa fin
    std::istringstream fautes("versoin 14;puce intel\npuce intel;version 14.;utilisateur d'été;"
                              "peripherique 0x403 0x6001;kext a/b.kext;geste | Bouton;fin a\r");
    int nombre = 0;
    for (std::string texte; std::getline(fautes, texte, ';'); ++nombre) {
        hote.poser("/s/" + std::to_string(nombre) + ".scenario", texte);
    }
    const std::string dits =
        lancer(cite(CREER_MAC) + " --liste --scenarios " + cite(hote.reel("/s"))).sortie;
    EXPECT_TRUE(contient(dits, " ligne 1 : la clé « versoin » est inconnue\n")) << dits;
    EXPECT_TRUE(contient(dits, " ligne 2 : la clé « puce » est déjà donnée\n")) << dits;
    std::istringstream lignes(dits);
    for (std::string ligne; std::getline(lignes, ligne); --nombre) {
        EXPECT_TRUE(contient(ligne, " ligne ")) << ligne;
    }
    EXPECT_EQ(nombre, 0);
}

TEST(CreerMac, uneDemandeImpossibleNeCreeRien) {
    const MacEssai hote("pret");
    const fs::path d = hote.reel("/essai été");
    hote.poser("/essai été/faux.scenario", "puce arm\n");
    // Un échec en cours de route : un nom que le disque ne peut pas porter.
    hote.poser("/essai été/long.scenario", "kext " + std::string(300, 'k') + ".kext\n");
    const std::string ici = " --scenarios " + cite(d);
    for (const auto& [suite, phrase] : std::initializer_list<std::pair<std::string, std::string>>{
             {"--scenario inconnu " + cite(d / "m"), "n'existe pas"},
             {"--scenario faux" + ici + " " + cite(d / "m"), "ligne 1"},
             {"--scenario pret " + cite(d / "absent/m"), "n'existe pas"},
             {"--scenario long" + ici + " " + cite(d / "m"), "erreur 36"},
             {"--scenario pret", "Usage"},
             {"--verifier " + cite(d), "n'est pas un Mac"}}) {
        const Systeme::Resultat refus = lancer(cite(CREER_MAC) + " " + suite);
        EXPECT_EQ(refus.code, 2) << suite;
        EXPECT_TRUE(contient(refus.sortie, phrase)) << refus.sortie;
    }
    EXPECT_EQ(lancer("ls -A " + cite(d)).sortie, "faux.scenario\nlong.scenario\n");
}

TEST(CreerMac, unMacAbimeSeDitEnNommantCeQuiLuiManque) {
    const MacEssai mac("pret");
    const std::string verifier = cite(CREER_MAC) + " --verifier " + cite(mac.racine());
    for (const std::string piece :
         {"usr/sbin/sysctl", "usr/bin/kmutil", "etat/usb", "etat/version", "private/tmp",
          "Library/Extensions", "System/Applications/Utilities/Terminal.app/Contents/MacOS"}) {
        fs::rename(mac.racine() / piece, mac.racine() / "ailleurs");
        EXPECT_TRUE(contient(lancer(verifier).sortie, "il manque « " + piece)) << piece;
        fs::rename(mac.racine() / "ailleurs", mac.racine() / piece);
    }
    fs::permissions(mac.reel("/usr/sbin/sysctl"), fs::perms::none); // une panne, pas un manque
    EXPECT_EQ(lancer(verifier).code, 0);
}
