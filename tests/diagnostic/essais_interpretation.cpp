// Ce que veulent dire les vraies réponses des outils.

#include "diagnostic/interpretation.hpp"

#include "commun/mac.hpp"

namespace {

std::string forme(const std::string& nom) {
    return essai::contenu(FORMES + nom);
}

void attendreDext(const std::string& listage, bool present, bool actif) {
    const EtatDext etat = lireEtatDext(listage);
    EXPECT_EQ(etat.present, present) << listage;
    EXPECT_EQ(etat.actif, actif) << listage;
}

} // namespace

TEST(Interpretation, SeulLeChiffreUnDitUnePuceApple) {
    for (const char* oui : {"1", "1\n", " \t1\r\n", "\u00A01\u2028"}) {
        EXPECT_TRUE(estPuceApple(oui)) << oui;
    }
    for (const std::string& non :
         {std::string(), std::string("0\n"), std::string("11\n"), std::string("1 1\n"),
          std::string("hw.optional.arm64: 1\n"), forme("sysctl-arm64-intel.txt")}) {
        EXPECT_FALSE(estPuceApple(non)) << non;
    }
}

TEST(Interpretation, D2xxHelperSeCherchePartoutMaisPasSousLeMemeNom) {
    const std::string avec = forme("kmutil-inspect-avec-d2xxhelper.txt");
    const std::string sans = forme("kmutil-inspect-sans-d2xxhelper.txt");
    const std::string ancien = forme("kextstat-macos10.15-ftdi.txt");
    for (const std::int64_t version : {10, 11, 15}) {
        EXPECT_TRUE(nommeD2xxHelper(avec, version));
        EXPECT_FALSE(nommeD2xxHelper(sans, version));
        EXPECT_FALSE(nommeD2xxHelper(ancien, version));
        EXPECT_FALSE(nommeD2xxHelper("com.ftdi.driver.d2xxhelper", version));
        EXPECT_EQ(nommeD2xxHelper(ancien + "D2xxHelper.kext", version), version == 10);
    }
}

TEST(Interpretation, LaLigneDeLExtensionDitSonEtat) {
    attendreDext(forme("sysext-ftdi-actif-macos15.txt"), true, true);
    attendreDext(forme("sysext-ftdi-desactive-macos15.txt"), true, false);
    attendreDext(forme("sysext-ftdi-deux-lignes-macos14.txt"), true, true);
    attendreDext(forme("sysext-ftdi-arret-en-cours.txt"), true, false);
    attendreDext(forme("sysext-sans-ftdi.txt"), false, false);
    attendreDext(forme("sysext-aucune.txt"), false, false);
    attendreDext("", false, false);
    attendreDext("\n\ncom.ftdi.vcp.dext [activated enabled]", true, true); // sans fin de ligne
    attendreDext("com.ftdi.vcp.dext activated enabled\ncom.ftdi.vcp.dext\n", true, true);
    attendreDext("com.ftdi.vcp.dext\nactivated enabled\n", true, false); // pas la même ligne
    attendreDext("com.ftdi.vcp.dext\ractivated enabled", true, true);    // pas une fin de ligne
    attendreDext("com.FTDI.vcp.dext activated enabled\n", false, false);
}
