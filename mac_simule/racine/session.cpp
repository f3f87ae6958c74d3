#include "mac_simule/racine/session.hpp"

#include "mac_simule/racine/etat.hpp"

#include <array>
#include <charconv>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <map>
#include <spawn.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace mac_simule {

namespace fs = std::filesystem;

namespace {

constexpr const char* kExecutable = "Assistant Lumivia";
constexpr int kPatience = 10; // secondes laissées à un assistant qui se ferme

sigset_t signauxAttendus() {
    sigset_t signaux;
    sigemptyset(&signaux);
    for (const int signal : {SIGCHLD, SIGHUP, SIGINT, SIGTERM}) {
        sigaddset(&signaux, signal);
    }
    return signaux;
}

std::string lireProc(pid_t pid, const char* nom) {
    return lireFichier("/proc/" + std::to_string(pid) + "/" + nom);
}

struct Processus {
    char etat = 'X'; // parti
    pid_t parent = 0;
};

// D'après /proc/PID/stat, dont le nom entre parenthèses peut tout contenir.
Processus lireProcessus(pid_t pid) {
    const std::string stat = lireProc(pid, "stat");
    const auto fin = stat.rfind(") ");
    if (fin == std::string::npos) {
        return {};
    }
    return {stat[fin + 2], std::atoi(stat.c_str() + fin + 4)};
}

std::vector<pid_t> descendants() {
    std::map<pid_t, pid_t> parents;
    for (const auto& dossier : contenuDe("/proc")) {
        const std::string nom = dossier.filename();
        pid_t pid = 0;
        if (std::from_chars(nom.data(), nom.data() + nom.size(), pid).ec == std::errc()) {
            parents[pid] = lireProcessus(pid).parent;
        }
    }
    const auto descend = [&](pid_t pid) {
        for (auto ici = parents.find(pid); ici != parents.end(); ici = parents.find(ici->second)) {
            if (ici->second == getpid()) {
                return true;
            }
        }
        return false;
    };
    std::vector<pid_t> trouves;
    for (const auto& [pid, parent] : parents) {
        if (descend(pid)) {
            trouves.push_back(pid);
        }
    }
    return trouves;
}

} // namespace

Session::Session(fs::path racine)
    : racine_(std::move(racine)),
      assistant_(racine_ / "Applications/Assistant Lumivia.app/Contents/MacOS" / kExecutable) {
    const sigset_t signaux = signauxAttendus();
    sigprocmask(SIG_BLOCK, &signaux, nullptr);
    prctl(PR_SET_CHILD_SUBREAPER, 1); // connu de tout noyau de Debian 12 : n'échoue pas
    setenv("LUMIVIA_MAC", racine_.c_str(), 1);
}

bool Session::lancer(const fs::path& programme, const std::vector<std::string>& arguments) {
    std::string nom = programme;
    std::vector<std::string> copies = arguments; // posix_spawn les veut modifiables
    std::vector<char*> vecteur{nom.data()};
    for (auto& copie : copies) {
        vecteur.push_back(copie.data());
    }
    vecteur.push_back(nullptr);
    posix_spawnattr_t attributs; // avec la glibc, seul le lancement peut échouer
    posix_spawnattr_init(&attributs);
    sigset_t aucun;
    sigemptyset(&aucun);
    posix_spawnattr_setsigmask(&attributs, &aucun);
    posix_spawnattr_setflags(&attributs, POSIX_SPAWN_SETSIGMASK);
    pid_t pid = 0;
    const bool lance =
        posix_spawn(&pid, nom.c_str(), nullptr, &attributs, vecteur.data(), environ) == 0;
    posix_spawnattr_destroy(&attributs);
    if (lance && programme == assistant_) {
        assistants_.insert(pid);
    }
    return lance;
}

bool Session::lancerAssistant(const std::vector<std::string>& arguments) {
    return lancer(assistant_, arguments);
}

// Un processus fini n'a plus d'arguments mais garde son nom, que le noyau coupe à quinze octets.
bool Session::estAssistant(pid_t pid) const {
    if (assistants_.contains(pid)) {
        return true;
    }
    if (lireProc(pid, "cmdline").find(assistant_ + '\0') != std::string::npos) {
        return true;
    }
    return lireProc(pid, "comm") == std::string(kExecutable).substr(0, 15) + "\n";
}

// Vrai quand sa ligne de commande nomme la racine. Celle d'un programme que le noyau charge est
// vide ; celle d'un processus fini aussi, et tant que le nôtre n'est pas recueilli, ce qu'il a pu
// lancer en finissant n'a pas été cherché.
bool Session::estDuMac(pid_t pid) const {
    const std::string commande = lireProc(pid, "cmdline");
    if (!commande.empty()) {
        return commande.find(racine_.string() + "/") != std::string::npos;
    }
    const Processus processus = lireProcessus(pid);
    return processus.etat != 'Z' || processus.parent == getpid();
}

void Session::recueillir() {
    siginfo_t fini{};
    while (waitid(P_ALL, 0, &fini, WEXITED | WNOHANG | WNOWAIT) == 0 && fini.si_pid != 0) {
        const bool assistant = estAssistant(fini.si_pid);
        int etat = 0;
        waitpid(fini.si_pid, &etat, 0);
        assistants_.erase(fini.si_pid);
        if (assistant) {
            etatAssistant_ = etat;
        }
        fini = {};
    }
}

int Session::attendre() {
    const sigset_t signaux = signauxAttendus();
    const timespec dixieme{0, 100'000'000};
    const int signal = sigtimedwait(&signaux, nullptr, &dixieme);
    recueillir();
    return signal > 0 && signal != SIGCHLD ? signal : 0;
}

Session::Reste Session::reste() {
    bool duMac = false;
    std::set<pid_t> presents; // un outil que l'assistant vient de lancer n'y reste pas
    for (const pid_t pid : descendants()) {
        if (estAssistant(pid)) {
            presents.insert(pid);
        } else {
            duMac = duMac || estDuMac(pid);
        }
    }
    assistants_ = std::move(presents);
    if (!assistants_.empty()) {
        return Reste::assistant;
    }
    return duMac ? Reste::autre : Reste::rien;
}

bool Session::terminerCeux(bool assistants, int secondes) {
    const auto limite = std::chrono::steady_clock::now() + std::chrono::seconds(secondes);
    std::set<pid_t> prevenus;
    while (true) {
        bool reste = false;
        for (const pid_t pid : descendants()) {
            if (!assistants || estAssistant(pid)) {
                reste = true;
                if (prevenus.insert(pid).second) {
                    kill(pid, SIGTERM);
                }
            }
        }
        if (!reste || std::chrono::steady_clock::now() > limite) {
            return !reste;
        }
        attendre();
    }
}

void Session::terminer() {
    terminerCeux(true, kPatience);
    while (!terminerCeux(false, 2)) {
        for (const pid_t pid : descendants()) {
            kill(pid, SIGKILL);
        }
    }
    if (WIFSIGNALED(etatAssistant_) && WTERMSIG(etatAssistant_) == SIGTERM) {
        etatAssistant_ = 0; // il a fait ce qu'on lui demandait
    }
}

} // namespace mac_simule
