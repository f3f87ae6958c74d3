// Le décodage UTF-8 et les blancs d'Unicode.

#include "support/utf8.hpp"

#include <gtest/gtest.h>

using namespace std::string_literals;

namespace {

const std::string kRemplacement = "\uFFFD";

const std::string kBornes = "\0\x7F\u0080\u07FF\u0800\uD7FF\uE000\uFFFF\U00010000\U0010FFFF"s;

std::string remplacements(int nombre) {
    return nombre == 0 ? "" : kRemplacement + remplacements(nombre - 1);
}

} // namespace

TEST(Utf8, chaquePlusLongueSousSuiteMalFormeeDevientUnRemplacement) {
    const std::pair<std::string, std::string> table[]{
        // Les exemples de la norme Unicode : formes trop longues, demi-codets, au-delà de U+10FFFF,
        // séquences tronquées.
        {"\xC0\xAF\xE0\x80\xBF\xF0\x81\x82\x41", remplacements(8) + "A"},
        {"\xED\xA0\x80\xED\xBF\xBF\xED\xAF\x41", remplacements(8) + "A"},
        {"\xF4\x91\x92\x93\xFF\x41\x80\xBF\x42",
         remplacements(5) + "A" + kRemplacement + kRemplacement + "B"},
        {"\xE1\x80\xE2\xF0\x91\x92\xF1\xBF\x41", remplacements(4) + "A"},
        {"\xC1\xBF\xF5\x80\xFE", remplacements(5)},
        // Une suite ne va que de 80 à BF.
        {"\xC2\xC0\xE0\xC0\x80\xE1\xC0\x80\xED\xC0\x80\xF0\xC0\x80\x80\xF1\xC0\x80\x80\xF4\xC0",
         remplacements(21)},
        // Coupées à la fin ou par la suivante.
        {"é\xC3", "é" + kRemplacement},
        {"\xE2\x82", kRemplacement},
        {"\xF0\x9F\x98", kRemplacement},
        {"\xF0\x9F\x98😀", kRemplacement + "😀"},
        // Une marque d'ordre des octets et un zéro sont des caractères.
        {"\xEF\xBB\xBFtexte\xFF", "\xEF\xBB\xBFtexte" + kRemplacement},
        {"a\0\xFF\0"s, "a\0"s + kRemplacement + "\0"s},
        // Les bornes de chaque longueur passent telles quelles.
        {kBornes, kBornes},
    };
    for (const auto& [octets, texte] : table) {
        // L'ASCII se lit par mots de huit octets : aucune position ne doit y échapper.
        for (std::size_t i = 0; i < 20; ++i) {
            const std::string avant(i, 'x');
            EXPECT_EQ(decoderUtf8(avant + octets + "xxxxxxxx"), avant + texte + "xxxxxxxx");
        }
        EXPECT_EQ(decoderUtf8(octets), texte);
        EXPECT_EQ(estUtf8Valide(octets), octets == texte);
        EXPECT_TRUE(estUtf8Valide(texte));
    }
}

TEST(Utf8, lesBlancsDUnicodeSeRognentAuxDeuxBouts) {
    for (const std::string blanc :
         {"\t",     "\n",     "\v",     "\f",     "\r",     " ",      "\u0085", "\u00A0", "\u1680",
          "\u2000", "\u2001", "\u2002", "\u2003", "\u2004", "\u2005", "\u2006", "\u2007", "\u2008",
          "\u2009", "\u200A", "\u2028", "\u2029", "\u202F", "\u205F", "\u3000"}) {
        EXPECT_EQ(rogner(blanc + " é" + blanc + "é\n" + blanc), "é" + blanc + "é");
        EXPECT_EQ(rogner(blanc + blanc), "");
    }
    EXPECT_EQ(rogner(""), "");
    for (const std::string visible :
         {"\x08", "\x1F", "\u00AD", "\u180E", "\u200B", "\u2060", "\uFEFF"}) {
        EXPECT_EQ(rogner(visible + " " + visible), visible + " " + visible);
    }
}
