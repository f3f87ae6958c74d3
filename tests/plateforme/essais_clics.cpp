// Les clics d'une suite commencée sur un bouton, et d'une suite commencée ailleurs.

#include "plateforme/posix/suite_de_clics.hpp"

#include <gtest/gtest.h>

TEST(SuiteDeClics, seuleCelleQuiACommenceSurLeBoutonEstPourLui) {
    plateforme::SuiteDeClics clics;
    EXPECT_FALSE(clics.accepte(2));
    EXPECT_FALSE(clics.accepte(3));
    EXPECT_TRUE(clics.accepte(1));
    EXPECT_TRUE(clics.accepte(2));
    EXPECT_TRUE(clics.accepte(3));
    EXPECT_TRUE(clics.accepte(1));
    EXPECT_FALSE(clics.accepte(3));
}
