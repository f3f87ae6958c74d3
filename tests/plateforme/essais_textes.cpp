// Les listes de propriétés.

#include "commun/liste_relue.hpp"
#include "commun/mac.hpp"
#include "plateforme/liste_proprietes.hpp"

using Noms = std::vector<std::string>;

namespace {

std::string relue(const plateforme::DictionnairePropriete& dictionnaire) {
    const essai::Mac mac;
    mac.poser("/Users/liste", plateforme::serialiserListe(dictionnaire).octets.value_or(""));
    return essai::relireListe(mac.reel("/Users/liste"), "sorted(d.items())");
}

} // namespace

TEST(ListeDeProprietes, seRelitTelleQuelle) {
    EXPECT_EQ(relue({{"un & <deux>", std::string(" \"é'✅]]>\t\n ")},
                     {"rien", Noms{}},
                     {"noms", Noms{"", "a&b"}},
                     {"faux", false},
                     {"vrai", true}}),
              "[('faux', False), ('noms', ['', 'a&b']), ('rien', []), "
              "('un & <deux>', ' \"é\\'✅]]>\\t\\n '), ('vrai', True)]");
}

TEST(ListeDeProprietes, unEmojiEtUnRetourChariotSeRelisent) {
    EXPECT_EQ(relue({{"cle", std::string("🎉\r\n")}}), "[('cle', '🎉\\r\\n')]");
}

TEST(ListeDeProprietes, unCaractereInterditEstUnEchecDit) {
    for (const std::string interdit : {"a\x1F", "a\uFFFE", "\uFFFFa"}) {
        for (const plateforme::DictionnairePropriete& porteur :
             {plateforme::DictionnairePropriete{{"cle", interdit}},
              {{interdit, true}},
              {{"cle", Noms{"permis", interdit}}}}) {
            const auto liste = plateforme::serialiserListe(porteur);
            EXPECT_FALSE(liste.octets.has_value());
            EXPECT_FALSE(liste.erreur.empty());
        }
    }
}
