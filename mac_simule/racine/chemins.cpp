#include "mac_simule/racine/chemins.hpp"

#include <algorithm>
#include <array>
#include <utility>

namespace mac_simule {

namespace {

constexpr std::array<std::string_view, 6> kDossiers{"/Library", "/Users",   "/Applications",
                                                    "/System",  "/usr/bin", "/usr/sbin"};

// Ce qui peut précéder un chemin dans un script sans en faire partie.
constexpr std::string_view kAvant = " \t\n'\"=:;|&(<>`";

bool continueUnNom(char c) {
    const auto octet = static_cast<unsigned char>(c);
    return octet >= 0x80 || (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') ||
           (c >= 'a' && c <= 'z') || c == '_' || c == '-' || c == '.';
}

} // namespace

bool estSousLaRacine(std::string_view chemin) {
    return std::any_of(kDossiers.begin(), kDossiers.end(), [&](std::string_view dossier) {
        return chemin.substr(0, dossier.size()) == dossier &&
               (chemin.size() == dossier.size() || !continueUnNom(chemin[dossier.size()]));
    });
}

std::string avecPrefixe(std::string_view script, std::string_view prefixe) {
    std::string sortie;
    for (std::size_t i = 0; i < script.size(); ++i) {
        const bool debut = i == 0 || kAvant.find(script[i - 1]) != std::string_view::npos;
        if (script[i] == '/' && debut && estSousLaRacine(script.substr(i))) {
            sortie += prefixe;
        }
        sortie += script[i];
    }
    return sortie;
}

FiltrePrefixe::FiltrePrefixe(std::string_view prefixe) : cherche_(std::string(prefixe) + "/") {}

std::string FiltrePrefixe::passer(std::string_view morceau) {
    std::string texte = std::exchange(attente_, {});
    texte += morceau;
    for (auto ici = texte.find(cherche_); ici != std::string::npos;
         ici = texte.find(cherche_, ici)) {
        texte.erase(ici, cherche_.size() - 1);
    }
    for (auto longueur = std::min(texte.size(), cherche_.size() - 1); longueur > 0; --longueur) {
        if (texte.compare(texte.size() - longueur, longueur, cherche_, 0, longueur) == 0) {
            attente_ = texte.substr(texte.size() - longueur);
            texte.resize(texte.size() - longueur);
            break;
        }
    }
    return texte;
}

std::string FiltrePrefixe::finir() {
    return std::exchange(attente_, {});
}

} // namespace mac_simule
