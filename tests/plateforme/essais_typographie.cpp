// Où les lignes d'un texte ne se coupent pas, et sous quoi revient leur suite.

#include "plateforme/posix/typographie.hpp"

#include <gtest/gtest.h>

TEST(Typographie, lieCeQuiNeSeSeparePasEtLeDelie) {
    const std::string texte = "Où est-il ? « /A B » n° 12 : FTD-2 !";
    const std::string lie = plateforme::lier(texte);
    EXPECT_EQ(lie,
              "Où est-\u2060il\u00A0? «\u00A0/\u2060A B\u00A0» n°\u00A012\u00A0: FTD-2\u00A0!");
    EXPECT_EQ(plateforme::delier(lie), texte);
}

TEST(Typographie, seulsUneEtapeEtUnEmojiOntUnRetrait) {
    for (const std::string debut : {"1.  ", "  12.  ", "✅  ", "\u26A0\uFE0F  ", "🖥  "}) {
        EXPECT_EQ(plateforme::retraitSuspendu(debut + "mot"), debut.size()) << debut;
    }
    for (const char* ligne :
         {"", "1.  ", "1.5 mot", "12 mots", "  mot", ". mot", "✅mot", "« mot"}) {
        EXPECT_EQ(plateforme::retraitSuspendu(ligne), 0U) << ligne;
    }
}
