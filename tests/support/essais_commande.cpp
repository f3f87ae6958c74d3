// Le lancement des commandes, par de vrais processus.

#include "commun/limite.hpp"
#include "commun/mac.hpp"
#include "commun/ressources.hpp"
#include "plateforme/processus.hpp"
#include "support/systeme.hpp"

#include <atomic>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

Systeme::Resultat sh(const std::string& script, const std::vector<std::string>& arguments = {}) {
    std::vector<std::string> tous{"-c", script, "sh"};
    tous.insert(tous.end(), arguments.begin(), arguments.end());
    return Systeme::commande("/bin/sh", tous);
}

class Commande : public testing::Test {
protected:
    std::string poser(const std::string& nom, const std::string& contenu, unsigned droits) const {
        mac.poser("/Users/" + nom, contenu);
        fs::permissions(mac.reel("/Users/" + nom), static_cast<fs::perms>(droits));
        return "/Users/" + nom;
    }

    const essai::Mac mac;
};

} // namespace

TEST_F(Commande, deuxCentsMegaoctetsSansFinDeLigneArriventEntiers) {
    const std::size_t taille = 200UL * 1024 * 1024 + 7;
    const Systeme::Resultat fin = sh("head -c $1 /dev/zero | tr '\\0' x", {std::to_string(taille)});
    EXPECT_EQ(fin.code, 0);
    EXPECT_EQ(fin.sortie.size(), taille);
    EXPECT_EQ(fin.sortie.find_first_not_of('x'), std::string::npos);
}

TEST_F(Commande, ceQuiNeTientPasEnMemoireSeDit) {
    if (std::getenv("TSAN_OPTIONS") != nullptr) {
        GTEST_SKIP() << "Sauté : les assainisseurs arrêtent un programme qui manque de mémoire";
    }
    essai::limiter(RLIMIT_AS, rlim_t{600} * 1024 * 1024);
    const std::string inonder = "head -c $1 /dev/zero | tr '\\0' $2";
    const Systeme::Resultat fin = sh(inonder, {"1000000000", "x"});
    EXPECT_GT(fin.sortie.size(), 1'000'000U);
    EXPECT_NE(fin.sortie.rfind("(la suite ne tient pas en mémoire)"), std::string::npos);
    // Décodé, chacun de ces octets en fait trois ; d'ordinaire, c'est là que la place manque.
    const std::string decode = sh(inonder, {"200000000", "\\377"}).sortie;
    EXPECT_NE(decode.rfind("ne tient pas en mémoire)"), std::string::npos);
}

TEST_F(Commande, toutPasseTelQuel) {
    std::signal(SIGCHLD, SIG_IGN); // comme un lanceur peut le laisser
    plateforme::retablirFinDesEnfants();
    const Systeme::Resultat fin = sh(
        "printf '%s|' \"$#\" \"$@\"; echo fin >&2; printf ' \\n\\n'; exit 3",
        {"", "deux mots", "l'un \"ou\" l'autre", "$HOME * `id` \\n", "ligne\nligne\n", "-", "é"});
    EXPECT_EQ(fin.sortie, "7||deux mots|l'un \"ou\" l'autre|$HOME * `id` \\n|ligne\nligne\n|-|é|"
                          "fin\n \n\n");
    EXPECT_EQ(fin.code, 3);
    EXPECT_EQ(Systeme::commande("/bin/echo").sortie, "\n");
    EXPECT_EQ(sh("printf '\\303'; printf '\\251\\303'").sortie, "é\uFFFD"); // coupé, tronqué
}

TEST_F(Commande, lEnfantNeRecoitNiDescripteurNiReglageDeSignal) {
    ASSERT_EQ(::dup2(::open("/dev/null", O_RDONLY), 900), 900); // passerait à un enfant ordinaire
    sigset_t tous;
    sigfillset(&tous);
    ::pthread_sigmask(SIG_BLOCK, &tous, nullptr);
    // Le quatrième est celui par lequel « ls » lit le dossier.
    EXPECT_EQ(Systeme::commande("/bin/ls", {"/proc/self/fd"}).sortie, "0\n1\n2\n3\n");
    EXPECT_EQ(sh("grep SigBlk /proc/self/status").sortie, "SigBlk:\t0000000000000000\n");
    for (const int ignore : {SIGPIPE, SIGTERM}) {
        std::signal(ignore, SIG_IGN);
        EXPECT_EQ(sh("kill -" + std::to_string(ignore) + " $$").code, ignore);
    }
}

TEST_F(Commande, laFinEstCelleDuProgrammeQuoiQuIlFasseDeSaSortie) {
    for (const auto& [script, code] :
         {std::pair{"echo dit; exec >&- 2>&-; sleep 0.3; exit 42", 42}, // il ferme sa sortie
          {"(sleep 0.3; echo dit) & exit 3", 3},                        // un descendant la tient
          {"echo dit; kill -KILL $$", SIGKILL},
          {"echo dit; kill -PIPE $$", SIGPIPE}}) {
        const Systeme::Resultat fin = sh(script);
        EXPECT_EQ(fin.sortie, "dit\n") << script;
        EXPECT_EQ(fin.code, code) << script;
    }
}

// Un enfant qui hériterait du tube d'un autre le retiendrait : personne ne finirait avant le
// premier, qui attend tous les autres.
TEST_F(Commande, huitCommandesALaFoisSIgnorent) {
    std::thread([] {}).join(); // un assainisseur garde un fil à lui dès le premier
    const essai::Ressources avant;
    std::atomic<int> fautes{0};
    std::thread longue([&] {
        fautes += sh("for i in $(seq 1500); do [ ! -e \"$1\" ] || exit 0; sleep 0.02; done; exit 1",
                     {mac.reel("/Users/signal")})
                      .code;
    });
    std::vector<std::thread> courtes;
    for (char lettre = 'a'; lettre < 'h'; ++lettre) {
        courtes.emplace_back([&fautes, lettre] {
            const std::string inonder = "head -c 300000 /dev/zero | tr '\\0' $1";
            for (int tour = 0; tour < 20; ++tour) {
                fautes += sh(inonder, {{lettre}}).sortie == std::string(300000, lettre) ? 0 : 1;
            }
        });
    }
    for (std::thread& courte : courtes) {
        courte.join();
    }
    mac.poser("/Users/signal", "");
    longue.join();
    EXPECT_EQ(fautes, 0);
    EXPECT_TRUE(essai::Ressources().memesTenues(avant));
}

TEST_F(Commande, sansDescripteurLErreurEstDite) {
    const int libre = ::open("/dev/null", O_RDONLY);
    ::close(libre);
    essai::limiter(RLIMIT_NOFILE, static_cast<rlim_t>(libre) + 1); // un tube en veut deux
    const Systeme::Resultat fin = Systeme::commande("/bin/echo", {"oui"});
    essai::limiter(RLIMIT_NOFILE, RLIM_INFINITY);
    EXPECT_EQ(fin.code, -1);
    EXPECT_EQ(fin.sortie, "« /bin/echo » : trop de fichiers sont ouverts (erreur 24).");
}

TEST_F(Commande, ceQuiNeSeLancePasSeTaitOuDitPourquoi) {
    const essai::Ressources avant;
    const std::string nu = poser("nu", "#!/bin/true\n", 0644);
    for (const std::string& chemin : {nu, nu + "/dessous", std::string("/Users/absent"),
                                      std::string("/Users"), std::string()}) {
        EXPECT_EQ(Systeme::commande(chemin).sortie, "") << chemin;
        EXPECT_EQ(Systeme::commande(chemin).code, -1) << chemin;
    }
    const auto refuse = Systeme::commande(poser("format", "ni programme ni script\n", 0755));
    EXPECT_EQ(refuse.sortie,
              "« /Users/format » : le format du programme n'est pas reconnu (erreur 8).");
    EXPECT_EQ(refuse.code, -1);
    EXPECT_EQ(Systeme::commande(poser("orphelin", "#!/nulle/part\n", 0755)).sortie,
              "« /Users/orphelin » : fichier ou dossier introuvable (erreur 2).");
    EXPECT_EQ(Systeme::commande(poser("bon", "#!/bin/true\n", 0755)).code, 0);
    EXPECT_TRUE(essai::Ressources().memesTenues(avant));
}
