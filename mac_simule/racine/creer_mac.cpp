// creer_mac : fait d'un scénario un Mac simulé, ou dit en une phrase pourquoi il ne le peut pas.

#include "mac_simule/racine/creation.hpp"
#include "mac_simule/racine/etat.hpp"
#include "mac_simule/racine/integrite.hpp"

#include <algorithm>
#include <iostream>
#include <optional>

namespace fs = std::filesystem;
using namespace mac_simule;

namespace {

constexpr int kEchec = 2;
constexpr const char* kUsage =
    "Usage : creer_mac --scenario NOM [--outils DOSSIER] [--scenarios DOSSIER]\n"
    "                  [--utilisateur NOM] RACINE\n"
    "        creer_mac --liste [--scenarios DOSSIER]\n"
    "        creer_mac --verifier RACINE\n";

struct Demande {
    std::string scenario;
    std::string utilisateur;
    fs::path outils;
    fs::path scenarios;
    fs::path racine;
    bool liste = false;
    bool verifier = false;
};

int echouer(const std::string& phrase) {
    std::cerr << phrase << '\n';
    return kEchec;
}

// Les outils et les scénarios sont construits à côté du programme.
fs::path dossierDuProgramme() {
    std::error_code ignoree; // sans /proc, le dossier courant sert
    return fs::read_symlink("/proc/self/exe", ignoree).parent_path();
}

bool lireOption(Demande& d, const std::string& option, const std::string& valeur) {
    if (option == "--scenario") {
        d.scenario = valeur;
    } else if (option == "--outils") {
        d.outils = valeur;
    } else if (option == "--scenarios") {
        d.scenarios = valeur;
    } else if (option == "--utilisateur") {
        d.utilisateur = valeur;
        return nomUtilisateurValide(valeur);
    } else {
        return false;
    }
    return true;
}

std::optional<Demande> lireDemande(const std::vector<std::string>& arguments) {
    std::error_code ignoree; // sans dossier courant, le chemin reste relatif et sera refusé
    Demande d;
    d.outils = dossierDuProgramme() / "outils";
    d.scenarios = dossierDuProgramme() / "scenarios";
    for (auto it = arguments.begin(); it != arguments.end(); ++it) {
        if (*it == "--liste") {
            d.liste = true;
        } else if (*it == "--verifier") {
            d.verifier = true;
        } else if (it->rfind("--", 0) != 0 && !it->empty() && d.racine.empty()) {
            d.racine = fs::absolute(*it, ignoree).lexically_normal();
        } else if (it + 1 == arguments.end() || !lireOption(d, *it, *(it + 1))) {
            return {};
        } else {
            ++it;
        }
    }
    if (!d.racine.has_filename()) {
        d.racine = d.racine.parent_path(); // « dossier/ » est « dossier »
    }
    return d;
}

int lister(const fs::path& dossier) {
    for (const auto& fichier : contenuDe(dossier)) {
        if (fichier.extension() != ".scenario") {
            continue;
        }
        const auto lu = lireScenario(lireFichier(fichier));
        const auto* scenario = std::get_if<Scenario>(&lu);
        std::string nom = fichier.stem();
        nom.resize(std::max<std::size_t>(nom.size(), 28), ' ');
        std::cout << nom << ' '
                  << (scenario != nullptr ? scenario->description : std::get<std::string>(lu))
                  << '\n';
    }
    return 0;
}

int creer(const Demande& demande) {
    const auto fichier = demande.scenarios / (demande.scenario + ".scenario");
    std::error_code ignoree; // ce qui ne se lit pas n'existe pas
    if (fichier.parent_path() != demande.scenarios || !fs::is_regular_file(fichier, ignoree)) {
        return echouer("Le scénario « " + demande.scenario +
                       " » n'existe pas ; --liste donne les scénarios.");
    }
    auto lu = lireScenario(lireFichier(fichier));
    if (const auto* erreur = std::get_if<std::string>(&lu)) {
        return echouer("Le scénario « " + demande.scenario + " » ne se lit pas, " + *erreur + ".");
    }
    auto& scenario = std::get<Scenario>(lu);
    if (!demande.utilisateur.empty()) {
        scenario.utilisateur = demande.utilisateur;
    }
    const std::string erreur = creerMac(scenario, demande.outils, demande.racine);
    return erreur.empty() ? 0 : echouer(erreur);
}

} // namespace

int main(int nombre, char** arguments) {
    const auto demande = lireDemande({arguments + 1, arguments + nombre});
    if (!demande || (!demande->liste && demande->racine.empty())) {
        std::cerr << kUsage;
        return kEchec;
    }
    if (demande->liste) {
        return lister(demande->scenarios);
    }
    if (demande->verifier) {
        const std::string defaut = defautDuMac(demande->racine);
        return defaut.empty() ? 0 : echouer(defaut);
    }
    return creer(*demande);
}
