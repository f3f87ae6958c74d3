// Le lecteur du relevé d'événements et les chiffres qu'il en tire.
#include "mesures/releve/chiffres.hpp"

#include <cmath>
#include <gtest/gtest.h>

namespace {

// Des trames régulières à partir de l'instant donné, en microsecondes ; le relevé en nanosecondes.
class Faux {
public:
    Faux& note(std::int64_t micro, const std::string& reste) {
        texte += std::to_string(micro * 1000) + " " + reste + "\n";
        return *this;
    }

    Faux& trame(std::int64_t debut, std::int64_t dureeBreak = 200) {
        note(debut, "break_on 0").note(debut + dureeBreak, "break_off 0");
        return note(debut + dureeBreak, "write 513 00ff").note(debut + dureeBreak, "write_end 513");
    }

    releve::Chiffres chiffres() const { return releve::calculer(releve::lire(texte).evenements); }

    std::string texte = "# dmx-record 1 essai=oui\n";
};

} // namespace

TEST(Releve, lesChiffresLaissentLaPremiereSeconde) {
    Faux faux;
    faux.trame(0, 50);
    for (int i = 0; i <= 100; ++i) { // la 100e période dure 5 ms de trop, la 101e trame la clôt
        faux.trame(1'000'000 + i * 30'000 + (i == 100 ? 5000 : 0), 200 + i);
        if (i == 0 || i == 100) {
            faux.note(1'010'000 + i * 30'000, "cpu_process " + std::to_string(i * 90'000));
            faux.note(1'010'000 + i * 30'000, "cpu_thread " + std::to_string(i * 80'000));
        }
    }
    const releve::Chiffres chiffres = faux.chiffres();
    EXPECT_EQ(chiffres.trames, 101U);
    EXPECT_DOUBLE_EQ(chiffres.periodeMoyenne, 30'050);
    EXPECT_DOUBLE_EQ(chiffres.periodeP99, 30'000);
    EXPECT_NEAR(chiffres.periodeEcartType, 497.5, 0.1);
    EXPECT_DOUBLE_EQ(chiffres.gigueP99, 0);
    EXPECT_NEAR(chiffres.tramesParSeconde, 33.278, 0.001);
    EXPECT_DOUBLE_EQ(chiffres.breakMin, 200) << "celui de 50 µs est dans la première seconde";
    EXPECT_DOUBLE_EQ(chiffres.breakP50, 250);
    EXPECT_DOUBLE_EQ(chiffres.calculProcessus, 90);
    EXPECT_DOUBLE_EQ(chiffres.calculFil, 80);
    EXPECT_EQ(chiffres.coupees, 0U);
}

TEST(Releve, lesTramesCoupeesComptentToujours) {
    Faux faux;
    faux.trame(0).trame(22'800).trame(60'000); // 200 + 125 + 513 × 44 = 22 897 µs
    faux.note(90'000, "break_on 0").note(120'000, "break_on 0").note(120'200, "write_fail 4");
    const releve::Chiffres chiffres = faux.chiffres();
    EXPECT_EQ(chiffres.coupees, 1U);
    EXPECT_EQ(chiffres.echecs, 2U);
    EXPECT_TRUE(std::isnan(chiffres.periodeMoyenne));

    Faux deux;
    deux.trame(0).trame(1'000'000).trame(1'030'000).note(1'060'000, "close 0");
    deux.note(9'000'000, "open 0").trame(9'000'100).trame(9'030'100);
    EXPECT_DOUBLE_EQ(deux.chiffres().periodeMoyenne, 30'000);
}
