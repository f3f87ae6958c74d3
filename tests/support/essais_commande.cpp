// Le lancement des commandes, par de vrais processus.

#include "commun/limite.hpp"
#include "commun/mac.hpp"
#include "support/systeme.hpp"

#include <atomic>
#include <fcntl.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

Systeme::Resultat sh(const std::string& script, const std::vector<std::string>& arguments = {}) {
    std::vector<std::string> tous{"-c", script, "sh"};
    tous.insert(tous.end(), arguments.begin(), arguments.end());
    return Systeme::commande("/bin/sh", tous);
}

std::ptrdiff_t descripteursOuverts() {
    const fs::directory_iterator ouverts("/proc/self/fd");
    return std::distance(begin(ouverts), end(ouverts));
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

TEST_F(Commande, DeuxCentsMegaoctetsSansFinDeLigneArriventEntiers) {
    const std::size_t taille = 200UL * 1024 * 1024 + 7;
    const Systeme::Resultat fin = sh("head -c $1 /dev/zero | tr '\\0' x", {std::to_string(taille)});
    EXPECT_EQ(fin.code, 0);
    EXPECT_EQ(fin.sortie.size(), taille);
    EXPECT_EQ(fin.sortie.find_first_not_of('x'), std::string::npos);
}

TEST_F(Commande, LesArgumentsEtLesDeuxSortiesPassentTelsQuels) {
    const Systeme::Resultat fin = sh(
        "printf '%s|' \"$#\" \"$@\"; echo fin >&2; printf ' \\n\\n'; exit 3",
        {"", "deux mots", "l'un \"ou\" l'autre", "$HOME * `id` \\n", "ligne\nligne\n", "-", "é"});
    EXPECT_EQ(fin.sortie, "7||deux mots|l'un \"ou\" l'autre|$HOME * `id` \\n|ligne\nligne\n|-|é|"
                          "fin\n \n\n");
    EXPECT_EQ(fin.code, 3);
    EXPECT_EQ(Systeme::commande("/bin/echo").sortie, "\n");
}

TEST_F(Commande, LEnfantNeRecoitNiDescripteurNiReglageDeSignal) {
    ASSERT_EQ(::dup2(::open("/dev/null", O_RDONLY), 900), 900); // passerait à un enfant ordinaire
    sigset_t tous;
    sigfillset(&tous);
    ::pthread_sigmask(SIG_BLOCK, &tous, nullptr);
    std::signal(SIGPIPE, SIG_IGN);
    // Le quatrième est celui par lequel « ls » lit le dossier.
    EXPECT_EQ(Systeme::commande("/bin/ls", {"/proc/self/fd"}).sortie, "0\n1\n2\n3\n");
    const std::string signaux =
        Systeme::commande("/bin/grep", {"-Eh", "^Sig(Blk|Ign)", "/proc/self/status"}).sortie;
    const std::string debut = "SigBlk:\t0000000000000000\nSigIgn:\t";
    ASSERT_EQ(signaux.substr(0, debut.size()), debut);
    EXPECT_EQ(std::stoull(signaux.substr(debut.size()), nullptr, 16) >> (SIGPIPE - 1) & 1U, 0U);
}

TEST_F(Commande, UnCaractereCoupeNImporteOuDonneDesRemplacements) {
    const std::string texte = "é€😀";
    // Un début tronqué fait un seul remplacement ; une suite sans début, un par octet.
    const std::pair<std::string, std::string> coupes[]{
        {"\uFFFD", "\uFFFD€😀"},      {"é", "€😀"},          {"é\uFFFD", "\uFFFD\uFFFD😀"},
        {"é\uFFFD", "\uFFFD😀"},      {"é€", "😀"},          {"é€\uFFFD", "\uFFFD\uFFFD\uFFFD"},
        {"é€\uFFFD", "\uFFFD\uFFFD"}, {"é€\uFFFD", "\uFFFD"}};
    for (std::size_t i = 0; i < std::size(coupes); ++i) {
        const std::string debut = texte.substr(0, i + 1);
        const std::string suite = texte.substr(i + 1);
        EXPECT_EQ(sh("printf %s \"$1\"", {debut}).sortie, coupes[i].first);
        EXPECT_EQ(sh("printf %s \"$1\"", {suite}).sortie, coupes[i].second);
        EXPECT_EQ(sh("printf %s \"$1\"; printf %s \"$2\"", {debut, suite}).sortie, texte);
    }
}

TEST_F(Commande, LaFinEstCelleDuProgrammeQuoiQuIlFasseDeSaSortie) {
    const Systeme::Resultat ferme = sh("echo fermé; exec >&- 2>&-; sleep 0.3; exit 42");
    EXPECT_EQ(ferme.sortie, "fermé\n");
    EXPECT_EQ(ferme.code, 42);
    const Systeme::Resultat descendant = sh("(sleep 0.3; echo descendant) & exit 3");
    EXPECT_EQ(descendant.sortie, "descendant\n"); // il tenait le tube
    EXPECT_EQ(descendant.code, 3);
    for (const int signal : {SIGKILL, SIGTERM, SIGPIPE}) {
        const Systeme::Resultat tue = sh("echo avant; kill -$1 $$", {std::to_string(signal)});
        EXPECT_EQ(tue.sortie, "avant\n");
        EXPECT_EQ(tue.code, signal);
    }
}

// Un enfant qui hériterait du tube d'un autre le retiendrait : personne ne finirait avant le
// premier, qui attend tous les autres.
TEST_F(Commande, HuitCommandesALaFoisNeSAttendentPasEtNeSeMelentPas) {
    std::atomic<int> fautes{0};
    std::thread longue([&] {
        const std::string attente =
            "for i in $(seq 1500); do [ ! -e \"$1\" ] || exit 0; sleep 0.02; done; exit 1";
        fautes += sh(attente, {mac.reel("/Users/signal")}).code;
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
}

TEST_F(Commande, MilleLancementsNeLaissentAucunDescripteur) {
    const std::string illisible = poser("format", "ni programme ni script\n", 0755);
    const std::ptrdiff_t avant = descripteursOuverts();
    for (int tour = 0; tour < 1000; ++tour) {
        const bool bon = tour % 10 != 0;
        ASSERT_EQ(Systeme::commande(bon ? "/bin/true" : illisible).code, bon ? 0 : -1);
    }
    EXPECT_EQ(descripteursOuverts(), avant);
}

TEST_F(Commande, SansDescripteurLErreurEstDite) {
    const int libre = ::open("/dev/null", O_RDONLY);
    ::close(libre);
    for (const int permis : {libre, libre + 1}) { // aucun, puis un seul des deux bouts du tube
        const essai::Limite limite(RLIMIT_NOFILE, static_cast<rlim_t>(permis));
        const Systeme::Resultat fin = Systeme::commande("/bin/echo", {"oui"});
        EXPECT_EQ(fin.code, -1);
        EXPECT_EQ(fin.sortie, "« /bin/echo » : trop de fichiers sont ouverts (erreur 24).");
    }
    EXPECT_EQ(Systeme::commande("/bin/echo", {"oui"}).sortie, "oui\n");
}

TEST_F(Commande, CeQuiNeSeLancePasSeTaitOuDitPourquoi) {
    const std::string nu = poser("nu", "#!/bin/true\n", 0644);
    const std::string format = poser("format", "ni programme ni script\n", 0755);
    const std::string orphelin = poser("orphelin", "#!/nulle/part\n", 0755);
    for (const auto& [chemin, texte] : std::initializer_list<std::pair<std::string, std::string>>{
             {"/Users/absent", ""},
             {"/Users", ""},
             {nu, ""},
             {nu + "/dessous", ""},
             {"", ""},
             {"/dev/null", ""},
             {format, "« " + format + " » : le format du programme n'est pas reconnu (erreur 8)."},
             {orphelin, "« " + orphelin + " » : fichier ou dossier introuvable (erreur 2)."}}) {
        const Systeme::Resultat fin = Systeme::commande(chemin);
        EXPECT_EQ(fin.sortie, texte) << chemin;
        EXPECT_EQ(fin.code, -1) << chemin;
    }
    EXPECT_EQ(Systeme::commande(poser("bon", "#!/bin/true\n", 0755)).code, 0);
}
