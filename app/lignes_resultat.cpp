#include "app/lignes_resultat.hpp"

#include "support/listes.hpp"

namespace {

constexpr const char* kMac = "\U0001F5A5";
constexpr const char* kBon = "✅";
constexpr const char* kAttention = "\u26A0\uFE0F";
constexpr const char* kInformation = "\u2139\uFE0F";
constexpr const char* kRedemarrage = "\U0001F504";

LigneResultat ligneEmetteurs(const Diagnostic& d) {
    if (d.emetteurs.empty()) {
        return {kAttention, "Aucun émetteur détecté sur les ports USB."};
    }
    return {kBon, "Émetteur détecté (n° " + joindre(d.emetteurs, ", ") + ")."};
}

LigneResultat ligneAnciensPilotes(const Diagnostic& d, bool redemarrageEnAttente) {
    if (redemarrageEnAttente) {
        return {kRedemarrage,
                "Les anciens pilotes ont été retirés : il reste à redémarrer le Mac."};
    }
    if (d.nettoyageNecessaire()) {
        return {kAttention,
                "Un ancien pilote FTDI (D2xxHelper) est installé. Il ne sert plus et provoque le "
                "message « extension système héritée » de macOS. L'assistant va le retirer."};
    }
    return {kBon, "Aucun ancien pilote à retirer."};
}

} // namespace

std::vector<LigneResultat> lignesResultat(const Diagnostic& d, bool redemarrageEnAttente) {
    std::vector<LigneResultat> lignes{{kMac, std::string("Mac ") +
                                                 (d.puceApple ? "à puce Apple" : "Intel") +
                                                 ", macOS " + d.texteMacOS()},
                                      ligneEmetteurs(d),
                                      ligneAnciensPilotes(d, redemarrageEnAttente)};
    if (d.desactivationDextNecessaire()) {
        lignes.push_back({kAttention,
                          "Le pilote FTDI « NullDriver » est activé. Il empêche certains logiciels "
                          "lumière de fonctionner : l'assistant va vous guider pour le "
                          "désactiver."});
    }
    if (!d.macOS11ouPlus()) {
        lignes.push_back({kInformation,
                          "Votre version de macOS est ancienne : l'assistant n'a pas été testé "
                          "dessus. Contactez Voltaris en cas de souci."});
    }
    if (!redemarrageEnAttente && d.toutEstPret()) {
        lignes.push_back({kBon, "Votre Mac n'a besoin d'aucun pilote supplémentaire : celui de "
                                "macOS suffit."});
    }
    return lignes;
}
