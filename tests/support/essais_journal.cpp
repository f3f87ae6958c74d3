// Le journal, en mémoire et sur le disque.

#include "commun/limite.hpp"
#include "commun/mac.hpp"
#include "support/journal.hpp"
#include "support/systeme.hpp"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <map>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;
using namespace std::string_literals;

namespace {

bool liensRefuses = false;

} // namespace

// Le programme d'essais passe par ici : un disque peut ne pas connaître les liens.
extern "C" int link(const char* source, const char* cible) noexcept {
    if (liensRefuses) {
        errno = EPERM;
        return -1;
    }
    return ::linkat(AT_FDCWD, source, AT_FDCWD, cible, 0);
}

namespace {

constexpr std::size_t kLongueurDate = std::string_view("[2024-05-17 14:03:09] ").size();

class EssaiJournal : public testing::Test {
protected:
    const essai::Mac mac;
    const std::string dossier = mac.maison() + "/Library/Logs";
    const std::string fichier = dossier + "/Assistant Lumivia.log";

    // Quoi qu'il arrive au fichier, la ligne vit en mémoire. Rend la ligne du fichier.
    static std::string noter(const std::string& message) {
        const std::size_t avant = Journal::shared().lignes().size();
        Journal::shared().note(message);
        EXPECT_EQ(Journal::shared().lignes().size(), avant + 1);
        EXPECT_EQ(Journal::shared().lignes().back().substr(kLongueurDate), message);
        return Journal::shared().lignes().back() + "\n";
    }
};

// Un processus par message l'écrit dix fois, tous au même départ : la fermeture d'un tube.
void laisserEcrire(const std::vector<std::string>& messages) {
    int tube[2];
    ASSERT_EQ(::pipe(tube), 0);
    for (const std::string& message : messages) {
        if (::fork() == 0) {
            char rien = 0;
            ::close(tube[1]);
            const bool parti = ::read(tube[0], &rien, 1) == 0;
            for (int i = 0; i < 10; ++i) {
                Journal::shared().note(message);
            }
            ::_exit(parti ? 0 : 1);
        }
    }
    ::close(tube[0]);
    ::close(tube[1]);
    for (int etat = 1; ::wait(&etat) > 0;) {
        EXPECT_EQ(etat, 0);
    }
}

} // namespace

TEST_F(EssaiJournal, laPremiereLigneCreeLeFichierALHeureLocale) {
    ::setenv("TZ", "<+14>-14", 1); // quatorze heures d'avance
    ::umask(077);
    const std::string avant = Systeme::commande("/bin/date", {"+[%Y-%m-%d %H:%M:%S] "}).sortie;
    const std::string ligne = noter("Démarrage de l'assistant 🎉");
    EXPECT_GE(ligne, avant);
    EXPECT_LE(ligne, Systeme::commande("/bin/date", {"+[%Y-%m-%d %H:%M:%S] zz"}).sortie);
    EXPECT_EQ(mac.lire(fichier), ligne);
    EXPECT_EQ(fs::status(mac.reel(fichier)).permissions(), static_cast<fs::perms>(0644));
}

TEST_F(EssaiJournal, chaqueMessageSuitLePrecedentSansRienEffacer) {
    std::string attendu = "[2024-05-17 14:03:09] une autre exécution\n";
    mac.poser(fichier, attendu);
    for (const std::string& message : {std::string(), std::string("Diagnostic :\nMac : M\n\nfin\n"),
                                       std::string(1 << 20, 'm')}) {
        attendu += noter(message);
    }
    EXPECT_TRUE(mac.lire(fichier) == attendu);
    EXPECT_EQ(Journal::shared().lignes().size(), 3U);
}

TEST_F(EssaiJournal, ceQuiNeSOuvrePasResteTelQuel) {
    mac.retirer(dossier);
    noter("un");
    EXPECT_FALSE(mac.existe(dossier));
    fs::create_directories(mac.reel(fichier)); // un dossier à la place du fichier
    noter("deux");
    mac.retirer(fichier);
    std::string attendu = noter("trois");
    fs::permissions(mac.reel(fichier), fs::perms::owner_read);
    const std::string refusee = noter("quatre");
    attendu += ::geteuid() == 0 ? refusee : ""; // root écrit partout
    EXPECT_EQ(mac.lire(fichier), attendu);
    EXPECT_EQ(mac.elements(dossier), 1);
}

TEST_F(EssaiJournal, uneLigneCoupeeParUnDisquePleinResteSeule) {
    const std::string premiere = noter("un");
    essai::limiter(RLIMIT_FSIZE, premiere.size() + 9);
    noter("coupée");
    essai::limiter(RLIMIT_FSIZE, RLIM_INFINITY);
    const std::string coupee = mac.lire(fichier);
    EXPECT_EQ(coupee.size(), premiere.size() + 9);
    const std::string suivante = noter("deux");
    EXPECT_EQ(mac.lire(fichier), coupee + "\n" + suivante);
}

TEST_F(EssaiJournal, uneMortNeLaisseNiLigneColleeNiFichierTemporaire) {
    const std::string coupee = "[2024-05-17 14:03:09] Démarr";
    mac.poser(fichier, coupee);
    const pid_t vivant = ::fork();
    if (vivant == 0) {
        ::alarm(60); // si l'essai finit mal, il ne reste pas
        ::pause();
    }
    // En base 36 : des numéros trop grands pour un vivant, le nôtre, qu'un mort avait, ceux de deux
    // vivants, et ce qui n'en est pas un.
    const auto marque = [](pid_t processus) {
        std::string chiffres(6, '0');
        for (auto place = chiffres.rbegin(); processus > 0; processus /= 36) {
            *place++ = "0123456789abcdefghijklmnopqrstuvwxyz"[processus % 36];
        }
        return chiffres;
    };
    for (const std::string& fin :
         {"y98765"s, "a43210"s, "1bcdef"s, "ghijkl"s, "mnopqr"s, "stuvwx"s, "1zzzzz"s,
          marque(::getpid()), marque(vivant), "000001"s, "old"s}) {
        mac.poser(fichier + "." + fin, coupee);
    }
    const std::string premiere = noter("un");
    EXPECT_EQ(mac.lire(fichier), coupee + "\n" + premiere);
    mac.retirer(fichier);
    noter("deux");
    EXPECT_TRUE(mac.existe(fichier + ".000001") && mac.existe(fichier + ".old"));
    EXPECT_TRUE(mac.existe(fichier + "." + marque(vivant)));
    EXPECT_EQ(mac.elements(dossier), 4);
    EXPECT_EQ(::waitpid(vivant, nullptr, WNOHANG), 0) << "regarder un processus ne le dérange pas";
    ::kill(vivant, SIGKILL);
}

TEST_F(EssaiJournal, ceQuiNEstPasUnFichierNeLArretePas) {
    fs::create_symlink("/dev/full", mac.reel(fichier));
    noter("un");
    EXPECT_EQ(fs::read_symlink(mac.reel(fichier)), "/dev/full");
    mac.retirer(fichier);
    ASSERT_EQ(::mkfifo(mac.reel(fichier).c_str(), 0600), 0);
    noter("deux"); // sans lecteur, l'ouvrir attendrait pour toujours
    EXPECT_EQ(mac.elements(dossier), 1);
}

// La première ligne est le moment dangereux : chacun croit le fichier absent.
TEST_F(EssaiJournal, desProgrammesQuiCommencentEnsembleNePerdentNiNeDechirentAucuneLigne) {
    for (int tour = 0; tour < 40 && !HasFailure(); ++tour) {
        const std::vector<std::string> messages{"a", std::string(80, 'b'),
                                                std::string(tour == 0 ? 1 << 20 : 5000, 'c')};
        mac.retirer(fichier);
        liensRefuses = tour % 2 == 1;
        laisserEcrire(messages);
        std::map<std::string, int> lus;
        std::istringstream lignes(mac.lire(fichier));
        for (std::string ligne; std::getline(lignes, ligne);) {
            ++lus[ligne.substr(std::min(kLongueurDate, ligne.size()))];
        }
        lus.erase(""); // vue pendant qu'elle s'écrit, une ligne d'un mégaoctet paraît coupée
        EXPECT_EQ(lus.size(), messages.size());
        for (const std::string& message : messages) {
            EXPECT_EQ(lus[message], 10) << message[0];
        }
        EXPECT_EQ(mac.elements(dossier), 1);
    }
}
