// Affiche les chiffres d'un ou de plusieurs relevés DMX.
//
//     lire_releve [--cles] FICHIER…
//
// Un tableau : un chiffre par ligne, un passage par colonne, l'ensemble à la fin quand il y en a
// plusieurs. Avec --cles, l'ensemble seul, une ligne « clé=valeur » par chiffre. Statut : 0, 1
// quand un fichier ne se lit pas, 2 quand on l'appelle mal.
#include "mesures/releve/chiffres.hpp"

#include <array>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>

namespace {

using releve::Chiffres;

struct Rubrique {
    const char* titre; // aligné à la main : printf compte les octets, non les lettres
    const char* cle;
    double (*valeur)(const Chiffres&);
    int decimales;
};

constexpr std::array kRubriques{
    Rubrique{"trames                         ", "trames",
             [](const Chiffres& c) { return static_cast<double>(c.trames); }, 0},
    Rubrique{"trames par seconde             ", "trames_par_seconde",
             [](const Chiffres& c) { return c.tramesParSeconde; }, 2},
    Rubrique{"période moyenne, µs            ", "periode_moyenne_us",
             [](const Chiffres& c) { return c.periodeMoyenne; }, 0},
    Rubrique{"période p99, µs                ", "periode_p99_us",
             [](const Chiffres& c) { return c.periodeP99; }, 0},
    Rubrique{"période, écart-type, µs        ", "periode_ecart_type_us",
             [](const Chiffres& c) { return c.periodeEcartType; }, 0},
    Rubrique{"gigue p99, µs                  ", "gigue_p99_us",
             [](const Chiffres& c) { return c.gigueP99; }, 0},
    Rubrique{"BREAK minimal, µs              ", "break_min_us",
             [](const Chiffres& c) { return c.breakMin; }, 0},
    Rubrique{"BREAK médian, µs               ", "break_p50_us",
             [](const Chiffres& c) { return c.breakP50; }, 0},
    Rubrique{"trames coupées                 ", "trames_coupees",
             [](const Chiffres& c) { return static_cast<double>(c.coupees); }, 0},
    Rubrique{"échecs                         ", "echecs",
             [](const Chiffres& c) { return static_cast<double>(c.echecs); }, 0},
    Rubrique{"calcul par trame, fil, µs      ", "calcul_fil_us",
             [](const Chiffres& c) { return c.calculFil; }, 1},
    Rubrique{"calcul par trame, processus, µs", "calcul_processus_us",
             [](const Chiffres& c) { return c.calculProcessus; }, 1},
};

bool lireFichier(const char* chemin, std::vector<Chiffres>& passages) {
    std::ifstream fichier(chemin, std::ios::binary);
    const std::string texte{std::istreambuf_iterator<char>(fichier), {}};
    if (!fichier.is_open()) {
        std::fprintf(stderr, "Le relevé « %s » ne s'ouvre pas.\n", chemin);
        return false;
    }
    const releve::Lecture lecture = releve::lire(texte);
    if (lecture.ligneFautive != 0) {
        std::fprintf(stderr, "La ligne %zu de « %s » n'est pas celle d'un relevé.\n",
                     lecture.ligneFautive, chemin);
        return false;
    }
    passages.push_back(releve::calculer(lecture.evenements));
    return true;
}

void afficherCles(const Chiffres& chiffres) {
    for (const Rubrique& rubrique : kRubriques) {
        std::printf("%s=%.*f\n", rubrique.cle, rubrique.decimales, rubrique.valeur(chiffres));
    }
}

void afficherTableau(std::vector<Chiffres> passages) {
    if (passages.size() > 1) {
        std::printf("%-31s", "passage");
        for (std::size_t i = 1; i <= passages.size(); ++i) {
            std::printf(" %10zu", i);
        }
        std::printf(" %10s\n", "ensemble");
        passages.push_back(releve::rassembler(passages));
    }
    for (const Rubrique& rubrique : kRubriques) {
        std::fputs(rubrique.titre, stdout);
        for (const Chiffres& passage : passages) {
            std::printf(" %10.*f", rubrique.decimales, rubrique.valeur(passage));
        }
        std::putchar('\n');
    }
}

} // namespace

int main(int nombre, char** arguments) {
    const bool cles = nombre > 1 && std::strcmp(arguments[1], "--cles") == 0;
    const int premier = cles ? 2 : 1;
    if (nombre <= premier) {
        std::fputs("usage : lire_releve [--cles] FICHIER…\n", stderr);
        return 2;
    }
    std::vector<Chiffres> passages;
    for (int i = premier; i < nombre; ++i) {
        if (!lireFichier(arguments[i], passages)) {
            return 1;
        }
    }
    if (cles) {
        afficherCles(releve::rassembler(passages));
    } else {
        afficherTableau(passages);
    }
    return 0;
}
