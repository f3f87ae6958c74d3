// L'analyse d'un Mac simulé en panne, et son rapport ; d'un Mac entier, les parcours approuvés.

#include "commun/mac.hpp"
#include "diagnostic/diagnostic.hpp"

using namespace std::string_literals;

namespace {

// Ce que fait un outil en panne (sans script, il a disparu) et ce qu'il affiche.
const std::pair<std::string, std::string> kPannes[] = {
    {"", ""},
    {"exit 0", ""},
    {"echo 'outil: refusé' >&2; exit 1", "outil: refusé"},
    {R"(printf '\376\000\001 com.FTDI \377')", "\uFFFD\0\x01 com.FTDI \uFFFD"s},
};

} // namespace

TEST(Analyse, unOutilEnPanneLaisseLesAutresRepondre) {
    const essai::Mac mac("complet");
    const std::string outils[] = {"/usr/sbin/sysctl", "/usr/bin/kmutil", "/usr/sbin/kextstat",
                                  "/usr/bin/systemextensionsctl"};
    for (const std::string& outil : outils) {
        const std::string entier = mac.lire(outil);
        mac.poserEtat("version", outil == outils[2] ? "10.15.7\n" : "14.5.0\n");
        for (const auto& [script, texte] : kPannes) {
            script.empty() ? mac.retirer(outil) : mac.poserOutil(outil, script);
            const Diagnostic d = Diagnostic::analyser();
            EXPECT_EQ(d.puceApple, outil != outils[0]);
            EXPECT_EQ(d.modele, outil == outils[0] ? texte : "Mac14,2");
            EXPECT_EQ(d.d2xxHelperCharge, outil != outils[1] && outil != outils[2]);
            EXPECT_EQ(d.dextFTDIPresent, outil != outils[3]);
            EXPECT_EQ(d.emetteurs, std::vector<std::string>{"A1B2C3"});
            EXPECT_EQ(d.anciensKextsFTDI.size(), 2U);
        }
        mac.poser(outil, entier);
    }
    mac.poserOutil(outils[1], "echo com.FTDI.driver.D2xxHelper >&2; exit 1");
    mac.poserOutil(outils[3], "echo com.ftdi.vcp.dext activated enabled; kill -9 $$");
    const Diagnostic d = Diagnostic::analyser();
    EXPECT_TRUE(d.d2xxHelperCharge && d.dextFTDIActif) << "le texte compte, jamais le statut";
}

TEST(Analyse, lesEmetteursSuiventLeRegistre) {
    const essai::Mac mac("sans-emetteur"); // un autre appareil de FTDI est branché
    const std::string ftdi = "fabricant 0x0403\nproduit 0x6001\n";
    mac.poserEtat("usb/d", ftdi + "serie B\n");
    mac.poserEtat("usb/a", ftdi);
    mac.poserEtat("usb/c", ftdi + "serie_nombre 42\n");
    mac.poserEtat("usb/b", "fabricant 403\nproduit 6001\nserie Numéro é, 1 \n");
    mac.poserEtat("usb/f", "fabricant 0x1A86\nproduit 0x6001\nserie X\n");
    mac.poserEtat("usb/g", "");
    EXPECT_EQ(Diagnostic::emetteursBranches(),
              (std::vector<std::string>{"sans numéro", "Numéro é, 1 ", "sans numéro", "B"}));
    mac.retirer("/etat/usb"); // le registre ne répond plus
    EXPECT_TRUE(Diagnostic::emetteursBranches().empty());
}

TEST(Diagnostic, leRapportSuitLesChampsTelsQuels) {
    Diagnostic d;
    d.versionMacOS = {15, 1, 12345678901};
    d.modele = "Un, deux\ntrois";
    d.emetteurs = {"A1B2C3", "sans numéro"};
    d.d2xxHelperCharge = true; // son fichier a disparu
    d.dextFTDIPresent = true;
    EXPECT_EQ(d.rapport(), "Mac : Un, deux\ntrois, Intel, macOS 15.1.12345678901\n"
                           "Émetteur(s) FTDI 0403:6001 : A1B2C3, sans numéro\n"
                           "D2xxHelper : fichier absent, chargé oui\n"
                           "Anciens pilotes FTDI : aucun\nPilote FTDI DriverKit : désactivé");
}

TEST(Diagnostic, chaqueAncienPiloteDemandeUnRetrait) {
    Diagnostic fichier, charge, autre;
    fichier.d2xxHelperFichier = charge.d2xxHelperCharge = true;
    autre.anciensKextsFTDI = {Diagnostic::anciensKexts[1]};
    EXPECT_TRUE(fichier.nettoyageNecessaire() && charge.nettoyageNecessaire());
    EXPECT_TRUE(autre.nettoyageNecessaire());
}
