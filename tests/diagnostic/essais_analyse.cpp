// L'analyse d'un Mac simulé, entier ou en panne.

#include "commun/mac.hpp"
#include "diagnostic/diagnostic.hpp"

using namespace std::string_literals;

namespace {

struct Attendu {
    std::string scenario;
    std::string rapport;
};

class AnalyseDeScenario : public testing::TestWithParam<Attendu> {};

const std::string kRienDAncien = "D2xxHelper : fichier absent, chargé non\n"
                                 "Anciens pilotes FTDI : aucun\n"
                                 "Pilote FTDI DriverKit : ";

const Attendu kScenarios[] = {
    {"complet", "Mac : Mac14,2, puce Apple, macOS 14.5.0\n"
                "Émetteur(s) FTDI 0403:6001 : A1B2C3\n"
                "D2xxHelper : fichier présent, chargé oui\n"
                "Anciens pilotes FTDI : /Library/Extensions/FTDIUSBSerialDriver.kext, "
                "/Library/Extensions/FTDIKext.kext\n"
                "Pilote FTDI DriverKit : activé"},
    {"pret", "Mac : Mac14,2, puce Apple, macOS 14.5.0\n"
             "Émetteur(s) FTDI 0403:6001 : A1B2C3\n" +
                 kRienDAncien + "absent"},
    {"sans-emetteur", "Mac : Mac14,2, puce Apple, macOS 14.5.0\n"
                      "Émetteur(s) FTDI 0403:6001 : aucun\n" +
                          kRienDAncien + "absent"},
    {"deux-emetteurs", "Mac : Mac15,3, puce Apple, macOS 15.3.1\n"
                       "Émetteur(s) FTDI 0403:6001 : A1B2C3, sans numéro\n" +
                           kRienDAncien + "absent"},
    {"ancien-macos", "Mac : MacBookPro15,1, Intel, macOS 10.15.7\n"
                     "Émetteur(s) FTDI 0403:6001 : A1B2C3\n"
                     "D2xxHelper : fichier présent, chargé oui\n"
                     "Anciens pilotes FTDI : aucun\n"
                     "Pilote FTDI DriverKit : absent"},
    {"extension-seule", "Mac : Mac15,3, puce Apple, macOS 15.3.1\n"
                        "Émetteur(s) FTDI 0403:6001 : A1B2C3\n" +
                            kRienDAncien + "activé"},
};

// Un outil en panne : ce qu'il affiche ; sans script, il a disparu.
struct Panne {
    std::string script;
    std::string texte;
};

const Panne kPannes[] = {
    {"", ""},
    {"exit 0", ""},
    {"echo 'outil: refusé' >&2; exit 1", "outil: refusé"},
    {R"(printf '\376\000\001 com.FTDI \377')", "\uFFFD\0\x01 com.FTDI \uFFFD"s},
};

} // namespace

TEST_P(AnalyseDeScenario, DonneSaFiche) {
    const essai::Mac mac(GetParam().scenario);
    EXPECT_EQ(Diagnostic::analyser().rapport(), GetParam().rapport);
}

INSTANTIATE_TEST_SUITE_P(Mac, AnalyseDeScenario, testing::ValuesIn(kScenarios),
                         [](const auto& cas) {
                             std::string nom = cas.param.scenario;
                             std::replace(nom.begin(), nom.end(), '-', '_');
                             return nom;
                         });

TEST(Analyse, UnOutilEnPanneLaisseLesAutresRepondre) {
    const essai::Mac mac("complet");
    const std::string outils[] = {"/usr/sbin/sysctl", "/usr/bin/kmutil", "/usr/sbin/kextstat",
                                  "/usr/bin/systemextensionsctl"};
    for (const std::string& outil : outils) {
        const std::string entier = mac.lire(outil);
        mac.poserEtat("version", outil == outils[2] ? "10.15.7\n" : "14.5.0\n");
        for (const Panne& panne : kPannes) {
            panne.script.empty() ? mac.retirer(outil) : mac.poserOutil(outil, panne.script);
            const Diagnostic d = Diagnostic::analyser();
            const bool sysctl = outil == outils[0];
            EXPECT_EQ(d.puceApple, !sysctl);
            EXPECT_EQ(d.modele, sysctl ? panne.texte : "Mac14,2");
            EXPECT_EQ(d.d2xxHelperCharge, outil != outils[1] && outil != outils[2]);
            EXPECT_EQ(d.dextFTDIPresent, outil != outils[3]);
            EXPECT_EQ(d.dextFTDIActif, outil != outils[3]);
            EXPECT_EQ(d.emetteurs, std::vector<std::string>{"A1B2C3"});
            EXPECT_TRUE(d.d2xxHelperFichier);
            EXPECT_EQ(d.anciensKextsFTDI.size(), 2U);
        }
        mac.poser(outil, entier);
    }
}

TEST(Analyse, LeStatutDesOutilsNeCompteJamais) {
    const essai::Mac mac("pret");
    mac.poserOutil("/usr/sbin/sysctl", "echo ' 1 '; exit 7");
    mac.poserOutil("/usr/bin/kmutil",
                   "[ $# = 1 ] && echo \"$1 com.FTDI.driver.D2xxHelper\" >&2; exit 1");
    mac.poserOutil("/usr/bin/systemextensionsctl",
                   "echo \"$* com.ftdi.vcp.dext activated enabled\"; kill -9 $$");
    const Diagnostic d = Diagnostic::analyser();
    EXPECT_TRUE(d.puceApple);
    EXPECT_EQ(d.modele, "1");
    EXPECT_TRUE(d.d2xxHelperCharge);
    EXPECT_TRUE(d.dextFTDIActif);
}

TEST(Analyse, LesEmetteursSuiventLeRegistre) {
    const essai::Mac mac("sans-emetteur"); // un autre appareil de FTDI est branché
    const auto brancher = [&mac](const std::string& nom, const std::string& lignes) {
        mac.poserEtat("usb/" + nom, lignes);
    };
    EXPECT_TRUE(Diagnostic::emetteursBranches().empty());
    brancher("d", "fabricant 0x0403\nproduit 0x6001\nserie B\n");
    brancher("a", "fabricant 0x0403\nproduit 0x6001\n");
    brancher("c", "fabricant 0x0403\nproduit 0x6001\nserie_nombre 42\n");
    brancher("b", "fabricant 1027\nproduit 24577\nserie Numéro é, 1 \n");
    brancher("e", "fabricant 0x0403\nproduit 0x6001\nserie B\n");
    brancher("f", "fabricant 0x1A86\nproduit 0x6001\nserie X\n");
    brancher("g", "");
    EXPECT_EQ(Diagnostic::emetteursBranches(),
              (std::vector<std::string>{"sans numéro", "Numéro é, 1 ", "sans numéro", "B", "B"}));
    mac.retirer("/etat/usb"); // le registre ne répond plus
    EXPECT_TRUE(Diagnostic::emetteursBranches().empty());
}
