#include "plateforme/processus.hpp"

#include "plateforme/posix/descripteur.hpp"
#include "plateforme/posix/erreurs.hpp"
#include "plateforme/posix/particularites.hpp"

#include <algorithm>
#include <array>
#include <csignal>
#include <new>
#include <spawn.h>
#include <string_view>
#include <sys/wait.h>

extern char** environ; // NOLINT(*-redundant-declaration) : un Mac ne la déclare nulle part

namespace plateforme {
namespace {

using natif::Descripteur;
using natif::sansInterruption;

constexpr std::size_t kBloc = 64UL * 1024;
constexpr std::size_t kCroissance = 64;
constexpr std::string_view kSuitePerdue = "\n(la suite ne tient pas en mémoire)\n";
constexpr std::size_t kAjoutMaximal = 256UL * 1024 * 1024;

// Les réglages d'un enfant : le tube en sortie et en erreur, les signaux remis à neuf, aucun
// descripteur de plus que les trois standard.
class ReglagesEnfant {
public:
    ReglagesEnfant() {
        ::posix_spawn_file_actions_init(&actions_);
        ::posix_spawnattr_init(&attributs_);
    }

    ReglagesEnfant(const ReglagesEnfant&) = delete;
    ReglagesEnfant& operator=(const ReglagesEnfant&) = delete;

    ~ReglagesEnfant() {
        ::posix_spawn_file_actions_destroy(&actions_);
        ::posix_spawnattr_destroy(&attributs_);
    }

    int preparer(int boutEcriture) {
        sigset_t signaux;
        // Sans « :: » : ce sont des macros sur Mac.
        sigfillset(&signaux);
        ::posix_spawnattr_setsigdefault(&attributs_, &signaux);
        sigemptyset(&signaux);
        ::posix_spawnattr_setsigmask(&attributs_, &signaux);
        ::posix_spawnattr_setflags(&attributs_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
        for (const int cible : {STDOUT_FILENO, STDERR_FILENO}) {
            const int code = ::posix_spawn_file_actions_adddup2(&actions_, boutEcriture, cible);
            if (code != 0) {
                return code;
            }
        }
        return natif::isolerDescripteurs(actions_, attributs_);
    }

    int lancer(const std::string& chemin, std::vector<char*>& arguments, pid_t& enfant) {
        return ::posix_spawn(&enfant, chemin.c_str(), &actions_, &attributs_, arguments.data(),
                             environ);
    }

private:
    posix_spawn_file_actions_t actions_{};
    posix_spawnattr_t attributs_{};
};

std::vector<char*> tableauDArguments(std::string& programme, std::vector<std::string>& arguments) {
    std::vector<char*> tableau{programme.data()};
    for (std::string& argument : arguments) {
        tableau.push_back(argument.data());
    }
    tableau.push_back(nullptr);
    return tableau;
}

// Fait de la place à un listage qui grandit. Chaque page de mémoire que l'on touche coûte, une page
// réservée et jamais écrite ne coûte rien : grandir de beaucoup évite les recopies successives.
void agrandir(std::string& octets, std::size_t venus) {
    const std::size_t capacite = octets.capacity();
    if (capacite - octets.size() < venus) {
        const std::size_t ample = std::min(kCroissance * capacite, capacite + kAjoutMaximal);
        octets.reserve(std::max({octets.size() + venus, 2 * capacite, ample}));
    }
}

// Lit par un bloc qui reste dans le cache : le texte n'est touché qu'une fois, par ce qui y reste.
// Lève std::bad_alloc, et garde dans `octets` ce qui est déjà reçu.
void lireJusquALaFin(int tube, std::string& octets) {
    std::array<char, kBloc> bloc; // NOLINT(*-member-init) : rempli par la lecture
    for (;;) {
        const ssize_t lus = sansInterruption([&] { return ::read(tube, bloc.data(), kBloc); });
        if (lus <= 0) { // fin du tube ; une erreur de lecture garde ce qui est déjà reçu
            return;
        }
        agrandir(octets, static_cast<std::size_t>(lus));
        octets.append(bloc.data(), static_cast<std::size_t>(lus));
    }
}

// Tout ce que le tube donne, ou ce qui en tient en mémoire, suivi d'une phrase qui le dit.
std::string lire(int tube) {
    std::string octets;
    try {
        lireJusquALaFin(tube, octets);
    } catch (const std::bad_alloc&) {
        // À la place de la fin reçue quand il le faut : il n'y a justement plus de place.
        if (octets.capacity() >= kSuitePerdue.size()) {
            octets.resize(std::min(octets.size(), octets.capacity() - kSuitePerdue.size()));
            octets += kSuitePerdue;
        }
    }
    return octets;
}

int attendre(pid_t enfant) {
    int etat = 0;
    if (sansInterruption([&] { return ::waitpid(enfant, &etat, 0); }) != enfant) {
        return -1;
    }
    return WIFSIGNALED(etat) ? WTERMSIG(etat) : WEXITSTATUS(etat);
}

} // namespace

FinDeProcessus executer(const std::string& chemin, const std::vector<std::string>& arguments) {
    int tube[2] = {-1, -1};
    if (!natif::ouvrirTube(tube)) {
        return {natif::decrireErreur(errno, chemin), -1};
    }
    Descripteur lecture(tube[0]);
    Descripteur ecriture(tube[1]);

    std::string programme = natif::cheminReel(chemin);
    std::vector<std::string> copies = arguments;
    std::vector<char*> tableau = tableauDArguments(programme, copies);
    ReglagesEnfant reglages;
    pid_t enfant = -1;
    int code = reglages.preparer(ecriture.numero());
    if (code == 0) {
        code = reglages.lancer(programme, tableau, enfant);
    }
    ecriture.fermer();
    if (code != 0) {
        return {natif::decrireErreur(code, chemin), -1};
    }
    // La lecture d'abord : un enfant qui remplit le tube attendrait sinon pour toujours.
    std::string octets = lire(lecture.numero());
    // Après une erreur de lecture, l'enfant écrit peut-être encore : sans lecteur, il s'arrête. Que
    // cette fermeture échoue n'y change rien : le descripteur est rendu de toute façon.
    lecture.fermer();
    return {std::move(octets), attendre(enfant)};
}

void retablirFinDesEnfants() {
    std::signal(SIGCHLD, SIG_DFL); // n'échoue pas : le signal existe
}

} // namespace plateforme
