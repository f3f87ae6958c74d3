#include "dmx/motif.hpp"

#include <gtest/gtest.h>

TEST(Motif, donneSaValeurAChaqueTrame) {
    for (std::int64_t n = 0; n < 90; ++n) {
        EXPECT_EQ(valeurCanaux(MotifDMX::plein, n), 255);
        EXPECT_EQ(valeurCanaux(MotifDMX::noir, n), 0);
    }
    const auto clignotant = [](std::int64_t n) { return valeurCanaux(MotifDMX::clignotant, n); };
    for (const std::int64_t debut :
         {std::int64_t{0}, std::int64_t{30}, std::int64_t{3'000'000'000}}) {
        EXPECT_EQ(clignotant(debut), 255);
        EXPECT_EQ(clignotant(debut + 14), 255);
        EXPECT_EQ(clignotant(debut + 15), 0);
        EXPECT_EQ(clignotant(debut + 29), 0);
    }
}
