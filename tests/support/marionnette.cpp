// Un programme dont les essais tirent les fils : il montre comment il a été lancé, inonde sa
// sortie, la ferme et vit encore, laisse un descendant derrière lui, meurt d'un signal.

#include <algorithm>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <thread>
#include <unistd.h>

namespace {

constexpr int kDescripteursVus = 4096;

void ecrire(std::string_view texte) {
    while (!texte.empty()) {
        const ssize_t ecrits = ::write(STDOUT_FILENO, texte.data(), texte.size());
        if (ecrits <= 0) {
            ::_exit(98);
        }
        texte.remove_prefix(static_cast<std::size_t>(ecrits));
    }
}

void dormir(int millisecondes) {
    std::this_thread::sleep_for(std::chrono::milliseconds(millisecondes));
}

void decrire() {
    std::string texte = "descripteurs";
    for (int numero = 0; numero < kDescripteursVus; ++numero) {
        texte += ::fcntl(numero, F_GETFD) < 0 ? "" : " " + std::to_string(numero);
    }
    texte += "\nsignaux retenus";
    sigset_t masque;
    ::sigprocmask(SIG_BLOCK, nullptr, &masque);
    for (int signal = 1; signal < SIGRTMIN; ++signal) {
        texte += sigismember(&masque, signal) == 1 ? " " + std::to_string(signal) : "";
    }
    const bool ordinaire = std::signal(SIGPIPE, SIG_DFL) == SIG_DFL;
    ecrire(texte + (ordinaire ? "\nSIGPIPE ordinaire\n" : "\nSIGPIPE changé\n"));
}

void inonder(std::size_t reste, char lettre) {
    const std::string bloc(1 << 20, lettre);
    for (; reste > 0; reste -= std::min(reste, bloc.size())) {
        ecrire(std::string_view(bloc).substr(0, reste));
    }
}

// Attend qu'un fichier paraisse.
bool attendre(const char* chemin) {
    for (int tour = 0; tour < 6000 && ::access(chemin, F_OK) != 0; ++tour) {
        dormir(5);
    }
    return ::access(chemin, F_OK) == 0;
}

} // namespace

int main(int nombre, char** fils) {
    const std::string_view geste = nombre > 1 ? fils[1] : "";
    if (geste == "décrire") {
        decrire();
    } else if (geste == "écrire") {
        std::for_each(fils + 2, fils + nombre, ecrire);
    } else if (geste == "inonder") {
        inonder(std::stoul(fils[2]), *fils[3]);
    } else if (geste == "fermer") {
        ecrire("fermé");
        ::close(STDOUT_FILENO);
        ::close(STDERR_FILENO);
        dormir(300);
        return std::stoi(fils[2]);
    } else if (geste == "descendant") {
        if (::fork() != 0) {
            return 3;
        }
        dormir(300);
        ecrire("descendant");
    } else if (geste == "mourir") {
        ecrire("avant");
        std::raise(std::stoi(fils[2]));
    } else {
        return geste == "attendre" && attendre(fils[2]) ? 0 : 99;
    }
    return 0;
}
