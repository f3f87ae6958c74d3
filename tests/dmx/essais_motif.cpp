#include "dmx/motif.hpp"

#include <gtest/gtest.h>

TEST(Motif, donneSaValeurAChaqueTrame) {
    for (const std::int64_t debut : {std::int64_t{0}, std::int64_t{3'000'000'000}}) {
        for (std::int64_t n = debut; n < debut + 90; ++n) {
            EXPECT_EQ(valeurCanaux(MotifDMX::plein, n), 255);
            EXPECT_EQ(valeurCanaux(MotifDMX::noir, n), 0);
            EXPECT_EQ(valeurCanaux(MotifDMX::clignotant, n), n % 30 < 15 ? 255 : 0);
        }
    }
}
