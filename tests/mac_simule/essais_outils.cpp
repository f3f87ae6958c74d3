// Les outils du Mac simulé, comparés aux formes relevées sur de vrais Mac.

#include "mac_essai.hpp"

namespace fs = std::filesystem;

namespace {

const std::string kD2xx =
    "com.FTDI.driver.D2xxHelper\t2.0.0\t/Library/Extensions/D2xxHelper.kext\n";

// Les lignes d'extension d'une forme, et les catégories autres que celle des pilotes.
std::string faitDeLaForme(const std::string& texte) {
    std::istringstream lignes(texte);
    std::string fait;
    for (std::string ligne; std::getline(lignes, ligne);) {
        if (ligne.rfind("---", 0) == 0) {
            fait += ligne.substr(0, ligne.find(' ', 4)) + "\n";
        } else if (ligne.find('\t') != std::string::npos && ligne.rfind("enabled", 0) != 0) {
            fait += ligne + "\n";
        }
    }
    return fait;
}

} // namespace

TEST(Outils, RepondentDApresEtatDansLaFormeDesVrais) {
    const MacEssai apple("complet");
    EXPECT_EQ(apple.dit("/usr/sbin/sysctl -n hw.optional.arm64"), "1\n");
    EXPECT_EQ(apple.dit("/usr/sbin/sysctl -n kern.boottime"), apple.lire("/etat/demarrage"));
    apple.poserEtat("modele", "Mac16,1"); // une valeur tapée à la main, sans fin de ligne
    EXPECT_EQ(apple.dit("/usr/sbin/sysctl -n hw.model"), "Mac16,1\n");
    EXPECT_EQ(apple.dit("/usr/bin/kmutil inspect"), forme("kmutil-inspect-avec-d2xxhelper.txt"));
    apple.poserEtat("kexts_charges", "");
    EXPECT_EQ(apple.dit("/usr/bin/kmutil inspect"), forme("kmutil-inspect-sans-d2xxhelper.txt"));
}

TEST(Outils, KmutilReconstruitSelonLApprobationEtNeDechargeRien) {
    const MacEssai mac("complet");
    EXPECT_EQ(mac.dit("/usr/bin/kmutil rebuild"),
              "Checking the auxiliary kernel collection...\nNo changes detected\n");
    mac.retirer("/Library/Extensions/D2xxHelper.kext");

    mac.poserEtat("kmutil", "refuse\n");
    const Systeme::Resultat refus = mac.outil("/usr/bin/kmutil rebuild");
    EXPECT_EQ(refus.code, 250);
    EXPECT_TRUE(contient(refus.sortie, "LocalAuthentication Code=-6"));
    mac.poserEtat("kmutil", "muet\n");
    const std::string muet = mac.dit("/usr/bin/kmutil rebuild");
    EXPECT_FALSE(contient(muet, "reboot is required") || contient(muet, "No changes")) << muet;

    mac.poserEtat("kmutil", "confirme\n");
    EXPECT_EQ(mac.dit("/usr/bin/kmutil rebuild"), forme("kmutil-rebuild-retrait.txt"));
    EXPECT_EQ(mac.lire("/etat/kexts_charges"), kD2xx);
    EXPECT_TRUE(contient(mac.dit("/usr/bin/kmutil rebuild"), "No changes"));
}

TEST(Outils, KmutilChangeAvecLaVersion) {
    const MacEssai mac("complet");
    const auto nommeRebuild = [&](const std::string& version) {
        mac.poserEtat("version", version + "\n");
        return contient(mac.dit("/usr/bin/kmutil help"), "rebuild");
    };
    EXPECT_FALSE(nommeRebuild("11.3.1"));
    EXPECT_EQ(mac.outil("/usr/bin/kmutil rebuild").code, 64);
    EXPECT_EQ(mac.dit("/usr/bin/kmutil install --update-all"), "");
    EXPECT_TRUE(nommeRebuild("11.4"));
    EXPECT_TRUE(nommeRebuild("13.0"));
    const Systeme::Resultat kdk = mac.outil("/usr/bin/kmutil install --update-all");
    EXPECT_NE(kdk.code, 0);
    EXPECT_TRUE(contient(kdk.sortie, "Missing Developer Kit: As of macOS 13.0"));
    EXPECT_EQ(mac.outil("/usr/bin/kmutil imprevu").code, 64);
}

TEST(Outils, CeuxDUnVieuxMacOntLaFormeDeMacos1015) {
    const MacEssai mac("ancien-macos");
    const Systeme::Resultat inconnu = mac.outil("/usr/sbin/sysctl -n hw.optional.arm64");
    EXPECT_EQ(inconnu.sortie, forme("sysctl-arm64-intel.txt"));
    EXPECT_EQ(inconnu.code, 1);
    mac.poserEtat("kexts_charges", "");
    std::string attendu = forme("kextstat-macos10.15-ftdi.txt");
    const auto serie = attendu.find("  161 ");
    attendu.erase(serie, attendu.find('\n', serie) + 1 - serie);
    EXPECT_EQ(mac.dit("/usr/sbin/kextstat"), attendu);
    mac.poserEtat("kexts_charges", kD2xx);
    EXPECT_TRUE(contient(mac.dit("/usr/sbin/kextstat"), "com.FTDI.driver.D2xxHelper (2.0.0) "));
    EXPECT_EQ(mac.outil("/usr/sbin/kextcache -i /").code, 0);
    EXPECT_NE(mac.outil("/usr/sbin/kextcache").code, 0);
}

TEST(Outils, SystemextensionsctlALesFormesDeMacos14Et15) {
    const MacEssai mac("extension-seule");
    EXPECT_EQ(mac.dit("/usr/bin/systemextensionsctl list"), forme("sysext-ftdi-actif-macos15.txt"));
    for (const char* nom :
         {"sysext-aucune.txt", "sysext-sans-ftdi.txt", "sysext-ftdi-desactive-macos15.txt",
          "sysext-ftdi-arret-en-cours.txt", "sysext-ftdi-deux-lignes-macos14.txt"}) {
        mac.poserEtat("version", contient(nom, "macos14") ? "14.5.0\n" : "15.1\n");
        mac.poserEtat("extensions_systeme", faitDeLaForme(forme(nom)));
        EXPECT_EQ(mac.dit("/usr/bin/systemextensionsctl list"), forme(nom)) << nom;
    }
    EXPECT_EQ(mac.outil("/usr/bin/systemextensionsctl imprevu").code, 64);
}

TEST(Outils, OpenDitPourquoiIlRefuse) {
    const MacEssai mac("pret");
    for (const char* refus : {"-a Inconnu /Users/x", "-a Terminal /Users/absent",
                              "/Applications/A.app", "https://exemple.fr", "/etc/passwd", ""}) {
        const Systeme::Resultat fini = mac.outil(std::string("/usr/bin/open ") + refus);
        EXPECT_EQ(fini.code, 1) << refus;
        EXPECT_NE(fini.sortie, "");
    }
}
