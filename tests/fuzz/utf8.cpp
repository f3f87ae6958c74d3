// Le décodage UTF-8 et les blancs, comparés à ceux de Qt.
#include "support/utf8.hpp"

#include <QtCore/QString>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

// L'entrée fautive est gardée par qui l'a tirée.
void exiger(bool vrai, const char* propriete) {
    if (!vrai) {
        std::fprintf(stderr, "Propriété fausse : %s.\n", propriete);
        std::abort();
    }
}

bool valide(std::string_view octets) {
    return QUtf8StringView(octets.data(), static_cast<qsizetype>(octets.size())).isValidUtf8();
}

std::string ascii(std::string_view octets) {
    std::string garde;
    std::copy_if(octets.begin(), octets.end(), std::back_inserter(garde),
                 [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    return garde;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* recus, std::size_t taille) {
    const std::string_view octets(reinterpret_cast<const char*>(recus), taille);
    const std::string texte = decoderUtf8(std::string(octets));
    exiger(valide(texte), "le texte rendu est de l'UTF-8");
    exiger(estUtf8Valide(octets) == valide(octets), "la validité est celle de la norme");
    exiger(valide(octets) == (texte == octets), "un texte valide, et lui seul, est rendu tel quel");
    exiger(ascii(texte) == ascii(octets), "aucun caractère ASCII ne se perd ni ne bouge");
    // Un caractère ASCII n'appartient à aucune séquence mal formée.
    const std::size_t milieu =
        octets.empty() ? 0 : static_cast<unsigned char>(octets[0]) % octets.size();
    const std::string debut(octets.substr(0, milieu));
    const std::string fin(octets.substr(milieu));
    exiger(decoderUtf8(debut + "x" + fin) == decoderUtf8(debut) + "x" + decoderUtf8(fin),
           "chaque côté d'un caractère ASCII se lit seul");
    // Derrière un blanc, une marque d'ordre des octets, que Qt sauterait, est un caractère.
    exiger(rogner(" " + texte) == QString::fromStdString(" " + texte).trimmed().toStdString(),
           "les blancs rognés sont ceux d'Unicode");
    return 0;
}
