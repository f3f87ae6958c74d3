#include "support/utf8.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace {

constexpr std::string_view kRemplacement = "\xEF\xBF\xBD";

// Une forme de séquence : les bornes de son premier octet, celles du deuxième (qui excluent les
// formes trop longues, les demi-codets et ce qui dépasse U+10FFFF), et sa longueur.
struct Forme {
    std::uint8_t premierMin;
    std::uint8_t premierMax;
    std::uint8_t deuxiemeMin;
    std::uint8_t deuxiemeMax;
    std::uint8_t longueur;
};

constexpr std::array<Forme, 8> kFormes{{
    {0xC2, 0xDF, 0x80, 0xBF, 2},
    {0xE0, 0xE0, 0xA0, 0xBF, 3},
    {0xE1, 0xEC, 0x80, 0xBF, 3},
    {0xED, 0xED, 0x80, 0x9F, 3},
    {0xEE, 0xEF, 0x80, 0xBF, 3},
    {0xF0, 0xF0, 0x90, 0xBF, 4},
    {0xF1, 0xF3, 0x80, 0xBF, 4},
    {0xF4, 0xF4, 0x80, 0x8F, 4},
}};

struct Sequence {
    std::size_t longueur; // octets consommés, au moins un
    bool valide;
};

// Lit la séquence qui commence par un octet non ASCII.
Sequence lireSequence(std::string_view octets) {
    const auto octet = [octets](std::size_t i) { return static_cast<std::uint8_t>(octets[i]); };
    const auto forme = std::find_if(kFormes.begin(), kFormes.end(), [&](const Forme& f) {
        return octet(0) >= f.premierMin && octet(0) <= f.premierMax;
    });
    if (forme == kFormes.end()) {
        return {1, false};
    }
    for (std::size_t i = 1; i < forme->longueur; ++i) {
        const std::uint8_t min = i == 1 ? forme->deuxiemeMin : std::uint8_t{0x80};
        const std::uint8_t max = i == 1 ? forme->deuxiemeMax : std::uint8_t{0xBF};
        if (i >= octets.size() || octet(i) < min || octet(i) > max) {
            return {i, false};
        }
    }
    return {forme->longueur, true};
}

// Longueur du début ASCII, lu huit octets à la fois : les listages des outils n'ont guère que cela.
std::size_t longueurAscii(std::string_view octets) {
    constexpr std::uint64_t kBitsHauts = 0x8080808080808080U;
    std::size_t i = 0;
    for (std::uint64_t mot = 0; i + sizeof mot <= octets.size(); i += sizeof mot) {
        std::memcpy(&mot, octets.data() + i, sizeof mot);
        if ((mot & kBitsHauts) != 0) {
            break;
        }
    }
    while (i < octets.size() && static_cast<std::uint8_t>(octets[i]) < 0x80) {
        ++i;
    }
    return i;
}

std::size_t longueurValide(std::string_view octets) {
    std::size_t i = longueurAscii(octets);
    while (i < octets.size()) {
        const Sequence sequence = lireSequence(octets.substr(i));
        if (!sequence.valide) {
            break;
        }
        i += sequence.longueur;
        i += longueurAscii(octets.substr(i));
    }
    return i;
}

// Longueur en octets du blanc qui commence le texte ; 0 quand ce n'en est pas un.
std::size_t blancAuDebut(std::string_view texte) {
    static constexpr std::array<std::string_view, 19> kBlancsLarges{
        "\xC2\x85",     "\xC2\xA0",     "\xE1\x9A\x80", "\xE2\x80\x80", "\xE2\x80\x81",
        "\xE2\x80\x82", "\xE2\x80\x83", "\xE2\x80\x84", "\xE2\x80\x85", "\xE2\x80\x86",
        "\xE2\x80\x87", "\xE2\x80\x88", "\xE2\x80\x89", "\xE2\x80\x8A", "\xE2\x80\xA8",
        "\xE2\x80\xA9", "\xE2\x80\xAF", "\xE2\x81\x9F", "\xE3\x80\x80"};
    if (!texte.empty() && (texte[0] == ' ' || (texte[0] >= '\t' && texte[0] <= '\r'))) {
        return 1;
    }
    for (const std::string_view blanc : kBlancsLarges) {
        if (texte.substr(0, blanc.size()) == blanc) {
            return blanc.size();
        }
    }
    return 0;
}

// Début du dernier caractère d'un texte non vide.
std::size_t dernierCaractere(std::string_view texte) {
    std::size_t i = texte.size() - 1;
    while (i > 0 && (static_cast<std::uint8_t>(texte[i]) & 0xC0) == 0x80) {
        --i;
    }
    return i;
}

} // namespace

std::string decoderUtf8(std::string octets) {
    std::size_t i = longueurValide(octets);
    if (i == octets.size()) {
        return octets;
    }
    std::string texte;
    texte.reserve(octets.size());
    texte.append(octets, 0, i);
    const std::string_view tout = octets;
    while (i < tout.size()) {
        i += lireSequence(tout.substr(i)).longueur;
        texte += kRemplacement;
        const std::size_t valide = longueurValide(tout.substr(i));
        texte.append(tout.substr(i, valide));
        i += valide;
    }
    return texte;
}

bool estUtf8Valide(std::string_view octets) {
    return longueurValide(octets) == octets.size();
}

std::string rogner(std::string_view texte) {
    while (const std::size_t longueur = blancAuDebut(texte)) {
        texte.remove_prefix(longueur);
    }
    while (!texte.empty()) {
        const std::size_t debut = dernierCaractere(texte);
        if (blancAuDebut(texte.substr(debut)) == 0) {
            break;
        }
        texte = texte.substr(0, debut);
    }
    return std::string(texte);
}
