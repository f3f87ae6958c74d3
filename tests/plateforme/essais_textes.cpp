// Ce qui dépend de la langue, et les listes de propriétés.

#include "commun/liste_relue.hpp"
#include "commun/mac.hpp"
#include "plateforme/langue.hpp"
#include "plateforme/liste_proprietes.hpp"

#include <algorithm>

namespace {

using Noms = std::vector<std::string>;

// Les mêmes noms, rangés dans cette langue.
void verifierOrdre(const char* langue, const Noms& attendus) {
    ::setenv("LC_ALL", langue, 1);
    Noms noms{"Zoé", "Lux", "lightkey", "Isadora", "ıris", "Émile"};
    std::sort(noms.begin(), noms.end(), plateforme::seRangeAvant);
    EXPECT_EQ(noms, attendus);
    EXPECT_FALSE(plateforme::seRangeAvant("Lightkey", "lightkey"));
    EXPECT_FALSE(plateforme::seRangeAvant("lightkey", "Lightkey"));
}

} // namespace

TEST(Ordre, SansLangueIlSuitLesCodes) {
    verifierOrdre("C", {"Isadora", "lightkey", "Lux", "Zoé", "Émile", "ıris"});
}

TEST(Ordre, EnFrancaisLesAccentsSuiventLeurLettre) {
    verifierOrdre("fr_FR.UTF-8", {"Émile", "Isadora", "ıris", "lightkey", "Lux", "Zoé"});
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
    for (const std::string interdit : {"\x01", "a\x1F", "\x0B"}) {
        const auto liste = plateforme::serialiserListe({{"cle", interdit}});
        EXPECT_FALSE(liste.octets.has_value());
        EXPECT_FALSE(liste.erreur.empty());
    }
}
