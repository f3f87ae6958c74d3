#include "mac_simule/robot/transcription.hpp"

#include <algorithm>
#include <cctype>
#include <cmath>

namespace robot {
namespace {

// Une version de police à l'autre, un texte gagne ou perd un point.
constexpr int kArrondi = 4;

int arrondir(int points) {
    return static_cast<int>(std::lround(static_cast<double>(points) / kArrondi)) * kArrondi;
}

std::string arrondis(int premier, const char* entre, int second) {
    return std::to_string(arrondir(premier)) + entre + std::to_string(arrondir(second));
}

std::string remplacer(std::string texte, const std::string& ceci, const std::string& cela) {
    for (std::size_t ou = texte.find(ceci); ou != std::string::npos;
         ou = texte.find(ceci, ou + cela.size())) {
        texte.replace(ou, ceci.size(), cela);
    }
    return texte;
}

std::pair<int, int> rang(const Vue& vue) {
    return {arrondir(vue.y + (vue.hauteur - 1) / 2), vue.x + (vue.largeur - 1) / 2};
}

} // namespace

std::string transcrire(std::vector<Vue> vues) {
    std::stable_sort(vues.begin() + 1, vues.end(),
                     [](const Vue& a, const Vue& b) { return rang(a) < rang(b); });
    std::string transcrit;
    for (const Vue& vue : vues) {
        const bool fenetre = vue.genre == "fenêtre";
        transcrit += vue.genre + " " + (fenetre ? "" : arrondis(vue.x, ",", vue.y) + " ") +
                     arrondis(vue.largeur, "×", vue.hauteur) +
                     (fenetre ? "" : " (" + vue.reglages + ")") + "\n    " +
                     remplacer(vue.texte, "\n", "\n    ") + "\n";
    }
    return transcrit;
}

std::string nomDeFichier(const std::string& titre) {
    std::string nom;
    for (const char c : remplacer(remplacer(titre, "é", "e"), "É", "e")) {
        const auto octet = static_cast<unsigned char>(c);
        if (std::isalnum(octet) != 0) {
            nom += static_cast<char>(std::tolower(octet));
        } else if (!nom.empty() && nom.back() != '-') {
            nom += '-';
        }
    }
    return nom.back() == '-' ? nom.substr(0, nom.size() - 1) : nom;
}

} // namespace robot
