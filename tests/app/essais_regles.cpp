// Les règles pures : l'ordre des pages, et ce qu'aucun parcours approuvé ne montre.
#include "app/lignes_resultat.hpp"
#include "app/logiciels.hpp"
#include "app/navigation.hpp"

#include <cstdlib>
#include <gtest/gtest.h>
#include <set>

TEST(LignesResultat, nAnnoncentUnMacPretQuApresLeRedemarrage) {
    Diagnostic d;
    d.versionMacOS = {14, 5, 0};
    d.emetteurs = {"A1B2C3", "sans numéro"};
    EXPECT_EQ(lignesResultat(d, true).size(), 3U);
    EXPECT_EQ(lignesResultat(d, false).size(), 4U);
    EXPECT_EQ(lignesResultat(d, false)[1].texte, "Émetteur détecté (n° A1B2C3, sans numéro).");
}

// Étape achevée, ancien pilote, extension active, émetteur, redémarrage à faire : la page.
TEST(Navigation, suitLaTableDuParcours) {
    struct Cas {
        Etape etape;
        bool ancien, extension, emetteur, redemarrage;
        PageSuivante attendue;
    };

    for (const Cas& cas : {
             Cas{Etape::analyse, true, true, true, true, PageSuivante::redemarrage},
             Cas{Etape::analyse, true, true, false, false, PageSuivante::retrait},
             Cas{Etape::analyse, false, true, false, false, PageSuivante::extension},
             Cas{Etape::analyse, false, false, true, false, PageSuivante::test},
             Cas{Etape::analyse, false, false, false, false, PageSuivante::brancher},
             Cas{Etape::changement, false, true, true, true, PageSuivante::extension},
             Cas{Etape::changement, false, false, true, true, PageSuivante::redemarrage},
             Cas{Etape::changement, false, false, true, false, PageSuivante::analyse},
             Cas{Etape::changement, true, false, true, false, PageSuivante::analyse},
         }) {
        Diagnostic d;
        d.dextFTDIPresent = true; // seule, elle ne demande rien
        d.dextFTDIActif = cas.extension;
        if (cas.ancien) {
            d.anciensKextsFTDI = {Diagnostic::anciensKexts[1]};
        }
        if (cas.emetteur) {
            d.emetteurs = {"A1B2C3"};
        }
        EXPECT_EQ(pageSuivante(cas.etape, d, cas.redemarrage), cas.attendue)
            << static_cast<int>(cas.etape) << cas.ancien << cas.extension << cas.redemarrage;
    }
}

TEST(Logiciels, seRangentPareilDansChaqueLangue) {
    std::set<std::string> suites;
    for (const char* langue : {"C", "fr_FR.UTF-8", "tr_TR.UTF-8"}) {
        ::setenv("LC_ALL", langue, 1);
        std::string noms;
        for (const Logiciels::Fiche& fiche : Logiciels::liste()) {
            noms += fiche.nom + ", ";
        }
        suites.insert(noms);
    }
    EXPECT_EQ(suites.size(), 1U);
}
