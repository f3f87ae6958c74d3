// Où les lignes d'un texte ne se coupent pas, et sous quoi revient leur suite.

#include "plateforme/posix/typographie.hpp"

#include <gtest/gtest.h>

TEST(Typographie, lieCeQuiNeSeSepareEtRendLOrigine) {
    const std::string texte = "Où est-il ? « /A B » n° 12 : FTD-2 !";
    EXPECT_EQ(plateforme::lier(texte),
              "Où est-\u2060il\u00A0? «\u00A0/\u2060A B\u00A0» n°\u00A012\u00A0: "
              "FTD-2\u00A0!");
    EXPECT_EQ(plateforme::delier(plateforme::lier(texte)), texte);
}

TEST(Typographie, seulsLesEtapesEtLesEmojisOntUnRetrait) {
    for (const std::string prefixe :
         {"1.  ", "  12.  ", "✅  ", "\u26A0\uFE0F  ", "\u2139\uFE0F ", "🖥  "}) {
        EXPECT_EQ(plateforme::retraitSuspendu(prefixe + "mot"), prefixe.size()) << prefixe;
    }
    for (const char* ligne : {"", "  ", "1.  ", "1.5 mot", "12 mots", "  mot", ". mot", "✅mot",
                              "« mot", "\u2014 mot", "été"}) {
        EXPECT_EQ(plateforme::retraitSuspendu(ligne), 0U) << ligne;
    }
}
