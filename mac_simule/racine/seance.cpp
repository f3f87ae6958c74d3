#include "mac_simule/racine/seance.hpp"

#include "mac_simule/racine/etat.hpp"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <poll.h>
#include <pty.h>
#include <sstream>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

namespace mac_simule {

namespace fs = std::filesystem;

namespace {

constexpr const char* kInvite = "Mot de passe : ";
constexpr int kPasMs = 100; // entre deux regards sur la fenêtre

volatile std::sig_atomic_t interrompue = 0;

void interrompre(int) {
    interrompue = 1;
}

// Un outil lié au-dehors, ou qui n'est pas exécutable, laisserait PATH atteindre le vrai.
bool resoutDansLaRacine(const fs::path& racine, const std::string& outil) {
    std::error_code erreur;
    const fs::path chemin = fs::canonical(racine / "usr/bin" / outil, erreur);
    if (erreur || !fs::is_regular_file(chemin, erreur) || access(chemin.c_str(), X_OK) != 0) {
        return false;
    }
    const std::string dossier = fs::canonical(racine, erreur).string() + "/";
    return !erreur && chemin.string().compare(0, dossier.size(), dossier) == 0;
}

void ecrireTout(int descripteur, std::string_view texte) {
    while (!texte.empty()) {
        const auto ecrit = write(descripteur, texte.data(), texte.size());
        if (ecrit < 0 && errno != EINTR) {
            return; // la fenêtre se ferme : il n'y a plus personne pour lire
        }
        texte.remove_prefix(ecrit > 0 ? static_cast<std::size_t>(ecrit) : 0);
    }
}

} // namespace

std::string refusDuTerminal(const fs::path& racine, const std::string& script) {
    if (!estSousLaRacine(script) || access((racine.string() + script).c_str(), R_OK | X_OK) != 0) {
        return "Le fichier « " + script + " » n'a pas pu être exécuté : l'accès est refusé.";
    }
    const bool kmutil = std::atoi(lireFait(racine, "version").c_str()) >= 11;
    for (const char* outil : {"sudo", "osascript", "kmutil"}) {
        if ((kmutil || outil != std::string_view("kmutil")) && !resoutDansLaRacine(racine, outil)) {
            return std::string("L'outil ") + outil +
                   " manque au Mac simulé : le Terminal ne lance rien.";
        }
    }
    return {};
}

Copie::Copie(const fs::path& racine, const std::string& script) {
    std::string modele = "/tmp/mac-XXXXXX";
    if (mkdtemp(modele.data()) == nullptr) {
        throw fs::filesystem_error("mkdtemp", std::error_code(errno, std::generic_category()));
    }
    dossier_ = modele;
    prefixe_ = modele + "/racine";
    const std::string nom = "/private/tmp/" + dossier_.filename().string() + ".command";
    fichier_ = racine.string() + nom;
    chemin_ = prefixe_ + nom;
    std::error_code lien;
    fs::create_directory_symlink(racine, prefixe_, lien);
    const std::string texte = avecPrefixe(lireFichier(racine.string() + script), prefixe_);
    if (lien || !ecrireFichier(fichier_, texte)) {
        std::error_code ignoree; // l'échec à rapporter est le premier
        fs::remove_all(dossier_, ignoree);
        throw fs::filesystem_error("copie", fichier_, std::make_error_code(std::errc::io_error));
    }
}

Copie::~Copie() {
    std::error_code ignoree; // un reste sous /tmp ne gêne personne
    fs::remove(fichier_, ignoree);
    fs::remove_all(dossier_, ignoree);
}

Seance::Seance(const fs::path& racine, const std::string& script, bool visible)
    : racine_(racine), fenetre_(racine / "etat/fenetres" / std::to_string(getpid())),
      visible_(visible), copie_(racine, script), filtre_(copie_.prefixe()) {
    std::istringstream lignes(lireFichier(racine / "etat/frappe"));
    for (std::string ligne; std::getline(lignes, ligne);) {
        frappe_.push_back(ligne);
    }
    if (!ecrireFichier(fenetre_, fs::path(script).filename().string() + "\n")) {
        throw fs::filesystem_error("fenêtre", fenetre_, std::make_error_code(std::errc::io_error));
    }
    // Le dernier affichage remplace le précédent ; s'il ne s'écrit pas, la séance a lieu quand
    // même.
    ecrireFichier(racine / "etat/terminal", "");
}

Seance::~Seance() {
    std::error_code ignoree; // osascript a pu l'effacer
    fs::remove(fenetre_, ignoree);
    if (maitre_ >= 0) {
        // Le script d'abord, s'il tient encore le premier plan : zsh diffère parfois SIGHUP le
        // temps d'une commande, et écrirait un résultat que la fenêtre fermée devait empêcher.
        if (const pid_t zsh = tcgetpgrp(maitre_);
            zsh > 0 && zsh != meneur_ && getsid(zsh) == meneur_) {
            kill(zsh, SIGKILL);
        }
        close(maitre_); // ce qu'il a lancé reçoit SIGHUP
    }
    if (meneur_ > 0) {
        waitpid(meneur_, nullptr, 0);
    }
}

// Dans le processus de zsh, au premier plan du pseudo-terminal.
void Seance::jouer() const {
    const auto maison = copie_.prefixe() + "/Users/" + lireFait(racine_, "utilisateur");
    const auto outils = copie_.prefixe() + "/usr/bin:" + copie_.prefixe() + "/usr/sbin";
    setenv("PATH", (outils + ":/usr/bin:/bin").c_str(), 1);
    setenv("HOME", maison.c_str(), 1);
    setenv("LUMIVIA_PREFIXE", copie_.prefixe().c_str(), 1);
    setenv("LC_ALL", "C.UTF-8", 1);
    setenv("TERM", "xterm-256color", visible_ ? 0 : 1);
    if (chdir(maison.c_str()) == 0) {
        execl("/bin/zsh", "zsh", "-f", copie_.chemin().c_str(), nullptr);
    }
    _exit(127);
}

// Le meneur de la session tient le rôle du shell de connexion : il laisse le premier plan à zsh,
// puis le reprend, sans quoi sa fin emporterait ce que le script a laissé en arrière-plan.
void Seance::menerLaSession() const {
    for (const int signal : {SIGHUP, SIGINT, SIGTERM, SIGQUIT, SIGPIPE}) {
        std::signal(signal, SIG_DFL);
    }
    std::signal(SIGTTOU, SIG_IGN);
    const pid_t zsh = fork();
    if (zsh == 0) {
        setpgid(0, 0);
        tcsetpgrp(STDIN_FILENO, getpid());
        std::signal(SIGTTOU, SIG_DFL);
        jouer();
    }
    while (waitpid(zsh, nullptr, 0) < 0 && errno == EINTR) {
    }
    tcsetpgrp(STDIN_FILENO, getpgrp());
    ecrireTout(STDOUT_FILENO, "\n[Opération terminée]\n");
    _exit(0);
}

bool Seance::demarrer() {
    winsize taille{24, 80, 0, 0};
    if (visible_) {
        ioctl(STDIN_FILENO, TIOCGWINSZ, &taille); // à défaut, la taille ordinaire
    }
    meneur_ = forkpty(&maitre_, nullptr, nullptr, &taille);
    if (meneur_ == 0) {
        menerLaSession();
    }
    return meneur_ > 0;
}

void Seance::afficher(const std::string& texte) {
    if (visible_) {
        ecrireTout(STDOUT_FILENO, texte);
    }
    std::ofstream(racine_ / "etat/terminal", std::ios::app) << texte;
    recent_ += texte;
}

void Seance::lireLeScript() {
    std::array<char, 4096> tampon{};
    const auto lu = read(maitre_, tampon.data(), tampon.size());
    if (lu > 0) {
        afficher(filtre_.passer({tampon.data(), static_cast<std::size_t>(lu)}));
    } else if (lu == 0 || errno != EINTR) { // EIO : plus personne n'écrit
        afficher(filtre_.finir());
        close(maitre_);
        maitre_ = -1;
    }
}

void Seance::transmettreLeClavier() const {
    std::array<char, 256> tampon{};
    const auto lu = read(STDIN_FILENO, tampon.data(), tampon.size());
    if (lu > 0 && maitre_ >= 0) {
        ecrireTout(maitre_, {tampon.data(), static_cast<std::size_t>(lu)});
    }
}

// Faux quand la réponse est de fermer la fenêtre.
bool Seance::repondreALInvite() {
    const auto invite = recent_.find(kInvite);
    if (invite == std::string::npos) {
        return true;
    }
    recent_.erase(0, invite + std::string_view(kInvite).size());
    if (faitPresent(racine_, "terminal_ferme")) {
        return false;
    }
    if (!visible_ && !frappe_.empty()) {
        ecrireTout(maitre_, frappe_.front() + "\n");
        frappe_.pop_front();
    }
    return true;
}

void Seance::derouler() {
    for (const int signal : {SIGHUP, SIGINT, SIGTERM}) {
        std::signal(signal, interrompre);
    }
    termios ordinaire{};
    const bool brut = visible_ && tcgetattr(STDIN_FILENO, &ordinaire) == 0;
    if (brut) {
        termios sansTraitement = ordinaire;
        cfmakeraw(&sansTraitement);
        tcsetattr(STDIN_FILENO, TCSANOW, &sansTraitement);
    }
    std::error_code ignoree; // une fenêtre qui ne se lit plus est fermée
    bool ouverte = demarrer();
    while (ouverte && interrompue == 0 && fs::exists(fenetre_, ignoree)) {
        std::array<pollfd, 2> attente{
            {{maitre_, POLLIN, 0}, {visible_ ? STDIN_FILENO : -1, POLLIN, 0}}};
        poll(attente.data(), attente.size(), kPasMs);
        if (attente[0].revents != 0) {
            lireLeScript();
        } else {
            afficher(filtre_.finir());
        }
        if (attente[1].revents != 0) {
            transmettreLeClavier();
        }
        ouverte = repondreALInvite();
    }
    if (brut) {
        tcsetattr(STDIN_FILENO, TCSANOW, &ordinaire);
    }
}

} // namespace mac_simule
