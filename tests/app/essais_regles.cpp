// Les règles pures : ce que disent les lignes du résultat, l'ordre des pages, le guide.
#include "app/lignes_resultat.hpp"
#include "app/logiciels.hpp"
#include "app/navigation.hpp"

#include <clocale>
#include <cstdlib>
#include <gtest/gtest.h>

namespace {

std::string icones(const Diagnostic& d, bool enAttente) {
    std::string suite;
    for (const LigneResultat& ligne : lignesResultat(d, enAttente)) {
        suite += ligne.icone;
    }
    return suite;
}

} // namespace

TEST(LignesResultat, suiventLEtatDuMac) {
    Diagnostic d;
    d.versionMacOS = {10, 5, 0};
    EXPECT_EQ(icones(d, false), "🖥⚠️✅ℹ️✅");
    EXPECT_EQ(lignesResultat(d, false)[0].texte, "Mac Intel, macOS 10.5.0");
    d.versionMacOS = {14, 5, 0};
    d.puceApple = true;
    EXPECT_EQ(icones(d, true), "🖥⚠️🔄") << "prêt, mais pas avant le redémarrage";
    EXPECT_EQ(lignesResultat(d, false)[0].texte, "Mac à puce Apple, macOS 14.5.0");
    d.emetteurs = {"A1B2C3", "sans numéro"};
    EXPECT_EQ(icones(d, false), "🖥✅✅✅");
    EXPECT_EQ(lignesResultat(d, false)[1].texte, "Émetteur détecté (n° A1B2C3, sans numéro).");
    d.d2xxHelperCharge = true;
    EXPECT_EQ(icones(d, true), "🖥✅🔄") << "le redémarrage passe avant l'ancien pilote";
    d.dextFTDIActif = true;
    EXPECT_EQ(icones(d, false), "🖥✅⚠️⚠️");
}

// Les autres pages viennent toutes dans les parcours ; aucun n'a de pilote sans émetteur.
TEST(Navigation, lesPilotesPassentAvantLEmetteur) {
    Diagnostic d;
    d.dextFTDIPresent = true;
    EXPECT_EQ(pageSuivante(d, false), PageSuivante::brancher) << "l'extension n'est pas active";
    d.dextFTDIActif = true;
    EXPECT_EQ(pageSuivante(d, false), PageSuivante::extension);
    d.anciensKextsFTDI = {Diagnostic::anciensKexts[1]};
    EXPECT_EQ(pageSuivante(d, false), PageSuivante::retrait);
}

TEST(Logiciels, seRangentPareilDansChaqueLangue) {
    const std::string attendus =
        "Chataigne, DMXDesktop, FootLight, Lightkey, Lightning DmxControl, "
        "MadMapper, Millumin, MyStrow, QLC+, SoundSwitch, xLights, Autre "
        "logiciel, ";
    for (const char* langue : {"C", "fr_FR.UTF-8", "tr_TR.UTF-8"}) {
        ::setenv("LC_ALL", langue, 1);
        std::string noms;
        for (const Logiciels::Fiche& fiche : Logiciels::liste()) {
            noms += fiche.nom + ", ";
            EXPECT_FALSE(fiche.consigne.empty());
        }
        EXPECT_EQ(noms, attendus) << langue;
    }
}
