// Confronte les changements de motif d'une session à son relevé.
//
//     verifier_changements RELEVE CHANGEMENTS
//
// Affiche le nombre de trames perdues (un BREAK sans son écriture, un motif dont aucune trame
// n'est partie) et répétées (l'ancien motif encore, après le changement).
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace {

// Le motif se lit juste avant le BREAK : une trame commencée dans ce délai peut encore être
// l'ancienne. Il est bien plus court qu'une trame.
constexpr long long kDelai = 5'000'000; // ns

struct Trame {
    long long debut = 0;
    int valeur = -1; // du premier canal ; -1 tant que rien n'est écrit
};

struct Changement {
    long long instant = 0;
    int valeur = 0;
};

std::vector<Trame> lireTrames(const char* chemin) {
    std::vector<Trame> trames;
    std::ifstream fichier(chemin);
    for (std::string ligne; std::getline(fichier, ligne);) {
        std::istringstream champs(ligne);
        long long instant = 0;
        long nombre = 0;
        std::string evenement;
        std::string octets;
        champs >> instant >> evenement >> nombre >> octets;
        if (evenement == "break_on") {
            trames.push_back({instant, -1});
        } else if (evenement == "write" && !trames.empty() && octets.size() >= 4) {
            trames.back().valeur = std::stoi(octets.substr(2, 2), nullptr, 16);
        }
    }
    return trames;
}

std::vector<Changement> lireChangements(const char* chemin) {
    std::vector<Changement> changements;
    std::ifstream fichier(chemin);
    for (Changement lu; fichier >> lu.instant >> lu.valeur;) {
        changements.push_back(lu);
    }
    return changements;
}

} // namespace

int main(int nombre, char** arguments) {
    if (nombre != 3) {
        std::fputs("Usage : verifier_changements RELEVE CHANGEMENTS\n", stderr);
        return 2;
    }
    const std::vector<Trame> trames = lireTrames(arguments[1]);
    const std::vector<Changement> changements = lireChangements(arguments[2]);
    if (trames.empty() || changements.size() < 2) {
        std::fputs("Le relevé ou la liste des changements est vide.\n", stderr);
        return 1;
    }
    long perdues = 0;
    long repetees = 0;
    auto trame = trames.begin();
    // Le dernier motif est suivi du noir de la fermeture, qui n'est pas daté.
    for (std::size_t i = 0; i + 1 < changements.size(); ++i) {
        bool partie = false;
        for (; trame != trames.end() && trame->debut < changements[i + 1].instant; ++trame) {
            perdues += trame->valeur < 0 ? 1 : 0;
            const bool nouvelle = trame->valeur == changements[i].valeur;
            partie = partie || nouvelle;
            repetees +=
                trame->valeur >= 0 && !nouvelle && trame->debut > changements[i].instant + kDelai
                    ? 1
                    : 0;
        }
        perdues += partie ? 0 : 1;
    }
    std::printf("%ld %ld\n", perdues, repetees);
    return 0;
}
