#include "plateforme/linux/demonstration_gestes.hpp"

namespace plateforme {
namespace {

using Genre = Geste::Genre;
using Gestes = std::vector<Geste>;

const char* const kPageTest = "Tester avec votre projecteur";

Gestes essaiDuProjecteur(const std::string& reponse) {
    return {{Genre::clic, "Allumer"},
            {Genre::attendre, "1500"},
            {Genre::portrait, "banc-allume"},
            {Genre::clic, "Clignoter"},
            {Genre::attendre, "1200"},
            {Genre::clic, "Éteindre"},
            {Genre::attendre, "1500"},
            {Genre::portrait, "banc-eteint"},
            {Genre::clic, reponse}};
}

Gestes fin(const std::string& titre) {
    Gestes gestes;
    if (titre == kPageTest) {
        gestes = {{Genre::clic, "Allumer"}, {Genre::attendre, "500"}};
    } else if (titre.rfind("Tout fonctionne", 0) == 0) {
        gestes = {{Genre::guide, ""}, {Genre::choisir, "Millumin"}, {Genre::image, "millumin"}};
    }
    gestes.push_back({Genre::clic, "Copier le rapport pour le support"});
    gestes.push_back({Genre::finir, ""});
    return gestes;
}

Gestes suite(const std::string& titre, const std::string& clicVoulu) {
    if (titre == kPageTest) {
        return essaiDuProjecteur(clicVoulu.empty() ? "Oui" : clicVoulu);
    }
    if (titre == "Analyse en cours…" || titre == "Retrait en cours…") {
        return {}; // l'assistant continue tout seul
    }
    if (titre == "Désactiver le pilote FTDI") {
        return {
            {Genre::clic, clicVoulu}, {Genre::attendre, "1000"}, {Genre::desactiverExtension, ""}};
    }
    return {{Genre::clic, clicVoulu}};
}

} // namespace

std::vector<Geste> gestesDeLaPage(const std::string& titre, bool derniere,
                                  const std::string& clicVoulu) {
    Gestes gestes{{Genre::image, ""}};
    for (const Geste& geste : derniere ? fin(titre) : suite(titre, clicVoulu)) {
        gestes.push_back(geste);
    }
    return gestes;
}

} // namespace plateforme
