// lanceur : loginwindow et launchd du Mac simulé. Ouvre l'assistant, redémarre le Mac quand il le
// demande, obéit ensuite aux agents de session, et finit quand plus rien du Mac ne tourne.
//
// Pendant une démonstration, une personne simulée rouvre l'assistant depuis le dossier Applications
// tant que la dernière page n'est pas atteinte, et tout finit au bout d'un temps donné.

#include "mac_simule/racine/agents.hpp"
#include "mac_simule/racine/chemins.hpp"
#include "mac_simule/racine/etat.hpp"
#include "mac_simule/racine/integrite.hpp"
#include "mac_simule/racine/redemarrage.hpp"
#include "mac_simule/racine/session.hpp"

#include <charconv>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <sys/wait.h>

namespace fs = std::filesystem;
using namespace mac_simule;

namespace {

constexpr int kReouverturesMax = 4;
// Sans assistant pendant ce temps, une démonstration conclut.
constexpr std::chrono::seconds kGrace{2};
constexpr std::chrono::seconds kDureeMax{600}; // d'une démonstration, redémarrages compris

class Lanceur {
public:
    Lanceur(const fs::path& racine, std::vector<std::string> arguments, std::chrono::seconds duree)
        : racine_(racine), arguments_(std::move(arguments)), session_(racine),
          demonstration_(std::getenv("LUMIVIA_DEMONSTRATION") != nullptr), duree_(duree) {}

    int derouler();

private:
    bool ouvrir();
    bool redemarrer();
    bool reposee();
    bool tropLongue() const;
    int conclure();

    fs::path racine_;
    std::vector<std::string> arguments_;
    Session session_;
    bool demonstration_;
    std::chrono::seconds duree_;
    std::chrono::steady_clock::time_point debut_ = std::chrono::steady_clock::now();
    int reouvertures_ = 0;
    std::chrono::steady_clock::time_point dernierAssistant_; // la dernière fois qu'on en a vu un
};

int echouer(const std::string& phrase) {
    std::cerr << phrase << std::endl;
    return 1;
}

bool Lanceur::ouvrir() {
    dernierAssistant_ = std::chrono::steady_clock::now();
    return session_.lancerAssistant(arguments_);
}

// Le Mac redémarre : tout se ferme, l'état change, la session s'ouvre et launchd lit ses agents.
bool Lanceur::redemarrer() {
    session_.terminer();
    if (!passerAuDemarrageSuivant(racine_)) {
        return false;
    }
    dernierAssistant_ = std::chrono::steady_clock::now();
    const auto maison = racine_ / "Users" / lireFait(racine_, "utilisateur");
    const auto agents = agentsDe(maison / "Library/LaunchAgents");
    if (agents.empty()) {
        std::cerr << "Le Mac a redémarré ; aucun agent de session ne rouvre l'assistant.\n";
    }
    for (const auto& agent : agents) {
        const auto& chemin = agent.programme.front();
        const fs::path programme = (estSousLaRacine(chemin) ? racine_.string() : "") + chemin;
        const std::vector<std::string> suite(agent.programme.begin() + 1, agent.programme.end());
        if (agent.auChargement && !session_.lancer(programme, suite)) {
            std::cerr << "launchd ne peut pas lancer « " << chemin << " » (" << agent.etiquette
                      << ").\n";
        }
    }
    return true;
}

// Vrai quand il n'y a plus rien à attendre de la session.
bool Lanceur::reposee() {
    const auto reste = session_.reste();
    if (reste == Session::Reste::rien || WIFSIGNALED(session_.etatAssistant())) {
        return true;
    }
    const auto maintenant = std::chrono::steady_clock::now();
    if (reste == Session::Reste::assistant) {
        dernierAssistant_ = maintenant;
    }
    // Une fenêtre du Terminal restée ouverte attend quelqu'un, que la démonstration n'a pas.
    return demonstration_ && maintenant - dernierAssistant_ > kGrace;
}

// Un assistant qui ne répond plus ne peut pas le dire lui-même.
bool Lanceur::tropLongue() const {
    return demonstration_ && std::chrono::steady_clock::now() - debut_ > duree_;
}

int Lanceur::conclure() {
    session_.terminer();
    const int etat = session_.etatAssistant();
    if (WIFSIGNALED(etat)) {
        return echouer("L'assistant s'est arrêté brutalement (signal " +
                       std::to_string(WTERMSIG(etat)) + ").");
    }
    if (demonstration_ && WEXITSTATUS(etat) == 0 && !faitPresent(racine_, "demonstration/fini")) {
        return echouer("La démonstration s'est arrêtée avant la dernière page.");
    }
    return WEXITSTATUS(etat);
}

int Lanceur::derouler() {
    if (!ouvrir()) {
        return echouer("L'assistant n'est pas dans le dossier Applications du Mac simulé.");
    }
    while (true) {
        if (const int signal = session_.attendre(); signal != 0) {
            session_.terminer();
            return 128 + signal;
        }
        if (tropLongue()) {
            session_.terminer();
            return echouer("La démonstration s'arrête : " + std::to_string(duree_.count()) +
                           " secondes n'ont pas suffi.");
        }
        if (faitPresent(racine_, "redemarrage_demande")) {
            if (!redemarrer()) {
                return echouer("Le Mac simulé n'a pas pu redémarrer : son état ne s'écrit pas.");
            }
        } else if (reposee()) {
            const bool bienFini = session_.etatAssistant() == 0;
            if (!demonstration_ || !bienFini || faitPresent(racine_, "demonstration/fini") ||
                ++reouvertures_ > kReouverturesMax || !ouvrir()) {
                return conclure();
            }
        }
    }
}

// La durée permise à une démonstration ; rien quand le fait ne dit pas un nombre de secondes.
std::optional<std::chrono::seconds> dureePermise(const fs::path& racine) {
    const std::string texte = lireFait(racine, "duree_demonstration");
    if (texte.empty()) {
        return kDureeMax;
    }
    int secondes = 0;
    const auto lu = std::from_chars(texte.data(), texte.data() + texte.size(), secondes);
    if (lu.ec != std::errc() || lu.ptr != texte.data() + texte.size() || secondes <= 0) {
        return {};
    }
    return std::chrono::seconds(secondes);
}

int refuser(const std::string& phrase) {
    std::cerr << phrase << '\n';
    return 2;
}

} // namespace

int main(int nombre, char** arguments) {
    const bool avecSuite = nombre >= 3 && std::string("--assistant") == arguments[2];
    if (nombre < 2 || (nombre > 2 && !avecSuite)) {
        return refuser("Usage : lanceur RACINE [--assistant ARGUMENTS…]");
    }
    std::error_code illisible; // le chemin reste alors tel qu'il est donné : ce n'est pas un Mac
    fs::path racine = fs::canonical(arguments[1], illisible);
    if (illisible) {
        racine = arguments[1];
    }
    if (const std::string defaut = defautDuMac(racine); !defaut.empty()) {
        return refuser(defaut);
    }
    const auto duree = dureePermise(racine);
    if (!duree) {
        return refuser("Le fait « duree_demonstration » attend un nombre de secondes.");
    }
    std::vector<std::string> suite;
    if (avecSuite) {
        suite.assign(arguments + 3, arguments + nombre);
    }
    return Lanceur(racine, std::move(suite), *duree).derouler();
}
