// Les verdicts et le texte d'une fiche, sans analyse.

#include "commun/mac.hpp"
#include "diagnostic/diagnostic.hpp"

TEST(Fiche, NeuveElleNePorteQueLaVersion) {
    const essai::Mac mac("complet");
    mac.poserEtat("version", "13.6\n");
    EXPECT_EQ(Diagnostic().rapport(), "Mac : , Intel, macOS 13.6.0\n"
                                      "Émetteur(s) FTDI 0403:6001 : aucun\n"
                                      "D2xxHelper : fichier absent, chargé non\n"
                                      "Anciens pilotes FTDI : aucun\n"
                                      "Pilote FTDI DriverKit : absent");
    EXPECT_TRUE(Diagnostic().toutEstPret());
}

TEST(Fiche, LeRapportSuitLesChampsTelsQuels) {
    Diagnostic d;
    d.versionMacOS = {15, 1, 1};
    d.modele = "Un, deux\ntrois";
    d.emetteurs = {"A", "sans numéro", "B"};
    d.d2xxHelperCharge = true; // son fichier a disparu
    d.dextFTDIPresent = true;
    EXPECT_EQ(d.rapport(), "Mac : Un, deux\ntrois, Intel, macOS 15.1.1\n"
                           "Émetteur(s) FTDI 0403:6001 : A, sans numéro, B\n"
                           "D2xxHelper : fichier absent, chargé oui\n"
                           "Anciens pilotes FTDI : aucun\n"
                           "Pilote FTDI DriverKit : désactivé");
    d.dextFTDIPresent = false;
    d.dextFTDIActif = true; // sans être nommée, elle reste absente
    EXPECT_EQ(d.rapport().substr(d.rapport().rfind(' ')), " absent");
    d.versionMacOS = {10, 0, 12345678901};
    EXPECT_EQ(d.texteMacOS(), "10.0.12345678901");
}

TEST(Fiche, LesVerdictsSuiventLesChamps) {
    for (unsigned bits = 0; bits < 16; ++bits) {
        Diagnostic d;
        d.d2xxHelperFichier = (bits & 1U) != 0;
        d.d2xxHelperCharge = (bits & 2U) != 0;
        d.anciensKextsFTDI.resize((bits & 4U) != 0 ? 1 : 0);
        d.dextFTDIActif = (bits & 8U) != 0;
        d.dextFTDIPresent = true; // installée mais inactive, elle ne gêne pas
        EXPECT_EQ(d.nettoyageNecessaire(), (bits & 7U) != 0);
        EXPECT_EQ(d.desactivationDextNecessaire(), (bits & 8U) != 0);
        EXPECT_EQ(d.toutEstPret(), bits == 0);
    }
    Diagnostic d;
    for (const auto& [majeure, attendu] : {std::pair{10, false}, {11, true}, {15, true}}) {
        d.versionMacOS = {majeure, 16, 0};
        EXPECT_EQ(d.macOS11ouPlus(), attendu);
    }
}
