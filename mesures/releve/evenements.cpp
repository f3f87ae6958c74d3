#include "mesures/releve/evenements.hpp"

#include <charconv>
#include <optional>

namespace releve {

namespace {

constexpr std::string_view kEntete = "# dmx-record 1";

// Retire et rend le premier mot de la ligne.
std::string_view mot(std::string_view& ligne) {
    const std::size_t espace = ligne.find(' ');
    const std::string_view premier = ligne.substr(0, espace);
    ligne.remove_prefix(espace == std::string_view::npos ? ligne.size() : espace + 1);
    return premier;
}

template <class Nombre>
bool nombre(std::string_view texte, Nombre& lu) {
    const char* const fin = texte.data() + texte.size();
    const auto [reste, erreur] = std::from_chars(texte.data(), fin, lu);
    return erreur == std::errc{} && reste == fin;
}

std::optional<Evenement> evenement(std::string_view ligne) {
    Evenement lu;
    const bool date = nombre(mot(ligne), lu.instant);
    lu.nom = mot(ligne);
    return date && !lu.nom.empty() && nombre(mot(ligne), lu.valeur) ? std::optional(lu)
                                                                    : std::nullopt;
}

} // namespace

Lecture lire(std::string_view texte) {
    Lecture lecture;
    texte = texte.substr(0, texte.find('\0'));
    std::size_t numero = 1;
    for (std::size_t fin = 0; (fin = texte.find('\n')) != std::string_view::npos; ++numero) {
        const std::string_view ligne = texte.substr(0, fin);
        texte.remove_prefix(fin + 1);
        if (numero > 1 && ligne.starts_with('#')) {
            continue;
        }
        const std::optional<Evenement> lu = evenement(ligne);
        if (lu && numero > 1) {
            lecture.evenements.push_back(*lu);
        } else if (numero > 1 || !ligne.starts_with(kEntete)) {
            lecture.ligneFautive = numero;
            return lecture;
        }
    }
    lecture.ligneFautive = numero == 1 ? 1 : 0; // pas même un en-tête
    return lecture;
}

} // namespace releve
