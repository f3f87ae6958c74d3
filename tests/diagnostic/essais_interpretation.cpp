// Ce que veulent dire les vraies réponses des outils.

#include "diagnostic/interpretation.hpp"

#include "commun/mac.hpp"

namespace {

using essai::forme;

void attendreDext(const std::string& listage, bool present, bool actif) {
    const EtatDext etat = lireEtatDext(listage);
    EXPECT_EQ(etat.present, present) << listage;
    EXPECT_EQ(etat.actif, actif) << listage;
}

} // namespace

TEST(Interpretation, seulLeChiffreUnDitUnePuceApple) {
    EXPECT_TRUE(estPuceApple("1"));
    EXPECT_TRUE(estPuceApple("\u00A01\r\n"));
    for (const char* non : {"", "0\n", "11\n", "1 1\n", "hw.optional.arm64: 1\n"}) {
        EXPECT_FALSE(estPuceApple(non)) << non;
    }
    EXPECT_FALSE(estPuceApple(forme("sysctl-arm64-intel.txt")));
}

TEST(Interpretation, d2xxHelperSeCherchePartoutMaisPasSousLeMemeNom) {
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

TEST(Interpretation, laLigneDeLExtensionDitSonEtat) {
    attendreDext(forme("sysext-ftdi-actif-macos15.txt"), true, true);
    attendreDext(forme("sysext-ftdi-desactive-macos15.txt"), true, false);
    attendreDext(forme("sysext-ftdi-deux-lignes-macos14.txt"), true, true);
    attendreDext(forme("sysext-ftdi-arret-en-cours.txt"), true, false);
    attendreDext(forme("sysext-sans-ftdi.txt"), false, false);
    attendreDext(forme("sysext-aucune.txt"), false, false);
    attendreDext("\n\ncom.ftdi.vcp.dext [activated enabled]", true, true); // sans fin de ligne
    attendreDext("com.ftdi.vcp.dext activated enabled\ncom.ftdi.vcp.dext\n", true, true);
    attendreDext("com.ftdi.vcp.dext\nactivated enabled\n", true, false); // pas la même ligne
    attendreDext("com.ftdi.vcp.dext\ractivated enabled", true, true);    // pas une fin de ligne
    attendreDext("com.FTDI.vcp.dext activated enabled\n", false, false);
}
