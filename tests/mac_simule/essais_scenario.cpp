// La lecture des scénarios et la création d'un Mac.

#include "mac_essai.hpp"

namespace fs = std::filesystem;

TEST(Scenario, ceQuiNeSeLitPasEstDitAvecSaLigne) {
    const MacEssai hote("pret"); // pour son dossier, que l'essai emporte à sa fin
    std::istringstream fautes(
        "versoin 14;puce intel\npuce intel;version;version 14;version 14.;version 14.5.;"
        "version a.b;version 14.5.0.1;version 99999.1;version 14. 5;puce arm;compte invite;modele;"
        "utilisateur ../x;utilisateur d'été;utilisateur .x;emetteur_nombre x;"
        "peripherique 0x403 0x6001;kext .kext;kext a/b.kext;kext D2xx;charge a 1;charge a 1 x;"
        "extension_ftdi oui;kmutil;puce_dmx x;vitesse_horloge 0;vitesse_horloge -1;"
        "terminal_ferme oui;geste Page;geste | Bouton;fin;fin a\r");
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
    const Systeme::Resultat dits =
        lancer("cd " + cite(mac.racine()) +
               R"(
        { find usr System -type f ! -name '*.plist'
          ls -d etat/usb etat/debranches etat/fenetres etat/version etat/utilisateur private/tmp \
              private/var/log Applications Library/Extensions 'Library/Application Support'
        } | while IFS= read -r piece; do
            mv "$piece" ailleurs
            )" CREER_MAC
               R"( --verifier "$PWD" 2>&1 | grep -F "il manque « $piece" || echo "sans $piece"
            mv ailleurs "$piece"
        done)");
    EXPECT_FALSE(contient(dits.sortie, "sans ")) << dits.sortie;
    EXPECT_TRUE(contient(dits.sortie, "usr/sbin/sysctl")) << dits.sortie;
    fs::permissions(mac.reel("/usr/sbin/sysctl"), fs::perms::none); // une panne, pas un manque
    EXPECT_EQ(lancer(cite(CREER_MAC) + " --verifier " + cite(mac.racine())).code, 0);
}
