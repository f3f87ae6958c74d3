// Les listes de propriétés.

#include "commun/liste_relue.hpp"
#include "commun/mac.hpp"
#include "plateforme/liste_proprietes.hpp"

using Noms = std::vector<std::string>;

TEST(ListeDeProprietes, seRelitTelleQuelle) {
    const essai::Mac mac;
    const auto liste =
        plateforme::serialiserListe({{"un & <deux>", std::string(" \"é'🎉]]>\r\t\n ")},
                                     {"rien", Noms{}},
                                     {"noms", Noms{"", "a&b"}},
                                     {"faux", false}});
    ASSERT_TRUE(liste.octets.has_value());
    mac.poser("/Users/liste", *liste.octets);
    EXPECT_EQ(essai::relireListe(mac.reel("/Users/liste"), "d"),
              "{'un & <deux>': ' \"é\\'🎉]]>\\r\\t\\n ', 'rien': [], 'noms': ['', 'a&b'], "
              "'faux': False}");
}

TEST(ListeDeProprietes, unCaractereInterditEstUnEchecDit) {
    for (const std::string interdit : {"a\x1F", "a\uFFFE"}) {
        const auto liste = plateforme::serialiserListe({{"cle", interdit}});
        EXPECT_FALSE(liste.octets.has_value());
        EXPECT_FALSE(liste.erreur.empty());
    }
}
