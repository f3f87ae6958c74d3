#include "plateforme/posix/typographie.hpp"

#include <algorithm>

namespace plateforme {
namespace {

constexpr std::string_view kInsecable = "\u00A0";
constexpr std::string_view kLiant = "\u2060"; // ni largeur, ni coupure
constexpr std::string_view kSelecteurEmoji = "\uFE0F";

void remplacer(std::string& texte, std::string_view avant, const std::string& apres) {
    for (auto ici = texte.find(avant); ici != std::string::npos;
         ici = texte.find(avant, ici + apres.size())) {
        texte.replace(ici, avant.size(), apres);
    }
}

// Une lettre accentuée commence et finit par un octet hors de l'ASCII.
bool estLettre(char octet) {
    const char minuscule = static_cast<char>(octet | 0x20);
    return (minuscule >= 'a' && minuscule <= 'z') || (octet & 0x80) != 0;
}

void lierLesTraitsDUnion(std::string& texte) {
    for (std::size_t i = 1; i + 1 < texte.size(); ++i) {
        if (texte[i] == '-' && estLettre(texte[i - 1]) && estLettre(texte[i + 1])) {
            texte.insert(i + 1, kLiant);
        }
    }
}

std::size_t apres(std::string_view texte, std::size_t debut, const char* signes) {
    return std::min(texte.find_first_not_of(signes, debut), texte.size());
}

// Le signe d'U+2100 à U+2BFF, ou au-delà d'U+1F000, et le sélecteur qui le met en couleur.
std::size_t finDEmoji(std::string_view texte, std::size_t debut) {
    const std::string_view signe = texte.substr(debut, 4);
    std::size_t fin = debut;
    if (signe >= "\U0001F000" && signe <= "\U0001FFFF") {
        fin += 4;
    } else if (signe >= "\u2100" && signe < "\u2C00") {
        fin += 3;
    }
    const bool selecteur = fin > debut && texte.substr(fin, 3) == kSelecteurEmoji;
    return selecteur ? fin + kSelecteurEmoji.size() : fin;
}

std::size_t finDeNumero(std::string_view texte, std::size_t debut) {
    const std::size_t point = apres(texte, debut, "0123456789");
    return point > debut && texte.substr(point, 1) == "." ? point + 1 : debut;
}

} // namespace

std::string lier(std::string texte) {
    remplacer(texte, "« /", "« /" + std::string(kLiant)); // un chemin, d'une pièce
    remplacer(texte, "« ", "«" + std::string(kInsecable));
    remplacer(texte, "n° ", "n°" + std::string(kInsecable));
    for (const char* signe : {"»", ":", ";", "?", "!"}) {
        remplacer(texte, std::string(" ") + signe, std::string(kInsecable) + signe);
    }
    lierLesTraitsDUnion(texte);
    return texte;
}

std::string delier(std::string texte) {
    remplacer(texte, kLiant, "");
    remplacer(texte, kInsecable, " ");
    return texte;
}

std::size_t retraitSuspendu(std::string_view ligne) {
    const std::size_t debut = apres(ligne, 0, " ");
    const std::size_t fin = std::max(finDeNumero(ligne, debut), finDEmoji(ligne, debut));
    const std::size_t mot = apres(ligne, fin, " ");
    return fin > debut && mot > fin && mot < ligne.size() ? mot : 0;
}

} // namespace plateforme
