// Ce qui dépend de la langue, et les listes de propriétés.

#include "commun/liste_relue.hpp"
#include "commun/mac.hpp"
#include "plateforme/langue.hpp"
#include "plateforme/liste_proprietes.hpp"

#include <algorithm>

using Noms = std::vector<std::string>;

TEST(Ordre, EnFrancaisNiLAccentNiLaCasseNeDecident) {
    ::setenv("LC_ALL", "fr_FR.UTF-8", 1);
    Noms noms{"Zoé", "Lux", "lightkey", "Isadora", "Émile"};
    std::sort(noms.begin(), noms.end(), plateforme::seRangeAvant);
    EXPECT_EQ(noms, (Noms{"Émile", "Isadora", "lightkey", "Lux", "Zoé"}));
    EXPECT_FALSE(plateforme::seRangeAvant("Lightkey", "lightkey"));
    EXPECT_FALSE(plateforme::seRangeAvant("lightkey", "Lightkey"));
}

TEST(ListeDeProprietes, SeRelitTelleQuelle) {
    const essai::Mac mac;
    const auto liste = plateforme::serialiserListe({{"un & <deux>", std::string(" \"é'🎉]]>\n ")},
                                                    {"rien", Noms{}},
                                                    {"noms", Noms{"", "a&b"}},
                                                    {"faux", false}});
    ASSERT_TRUE(liste.octets.has_value());
    mac.poser("/Users/liste", *liste.octets);
    EXPECT_EQ(essai::relireListe(mac.reel("/Users/liste"), "d"),
              "{'un & <deux>': ' \"é\\'🎉]]>\\n ', 'rien': [], 'noms': ['', 'a&b'], "
              "'faux': False}");
}

TEST(ListeDeProprietes, UnCaractereInterditEstUnEchecDit) {
    const auto liste = plateforme::serialiserListe({{"cle", std::string("a\x1F")}});
    EXPECT_FALSE(liste.octets.has_value());
    EXPECT_FALSE(liste.erreur.empty());
}
