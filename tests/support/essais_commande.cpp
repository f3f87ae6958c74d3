// Le lancement des commandes, par de vrais processus.

#include "commun/limite.hpp"
#include "support/systeme.hpp"

#include <atomic>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <thread>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

const std::string kScript = "#!/bin/sh\necho lancé\n";

Systeme::Resultat marionnette(const std::vector<std::string>& fils) {
    return Systeme::commande(MARIONNETTE, fils);
}

std::ptrdiff_t descripteursOuverts() {
    const fs::directory_iterator ouverts("/proc/self/fd");
    return std::distance(begin(ouverts), end(ouverts));
}

class Commande : public testing::Test {
protected:
    Commande() {
        std::string modele = fs::temp_directory_path() / "commande été-XXXXXX";
        dossier = ::mkdtemp(modele.data());
    }

    ~Commande() override { fs::remove_all(dossier); }

    std::string poser(const std::string& nom, const std::string& contenu, unsigned droits) const {
        std::ofstream(dossier / nom) << contenu;
        fs::permissions(dossier / nom, static_cast<fs::perms>(droits));
        return dossier / nom;
    }

    fs::path dossier;
};

} // namespace

TEST_F(Commande, DeuxCentsMegaoctetsArriventEntiers) {
    const std::size_t taille = 200UL * 1024 * 1024 + 7; // sans fin de ligne
    const Systeme::Resultat fin = marionnette({"inonder", std::to_string(taille), "x"});
    EXPECT_EQ(fin.code, 0);
    EXPECT_EQ(fin.sortie.size(), taille);
    EXPECT_EQ(fin.sortie.find_first_not_of('x'), std::string::npos);
}

TEST_F(Commande, LesDeuxSortiesSontRenduesTellesQuelles) {
    const Systeme::Resultat fin = Systeme::commande(
        "/bin/sh", {"-c", "echo un; echo deux >&2; printf ' trois \\n\\n'; exit 3"});
    EXPECT_EQ(fin.sortie, "un\ndeux\n trois \n\n");
    EXPECT_EQ(fin.code, 3);
}

TEST_F(Commande, LesArgumentsPassentSansInterprete) {
    const std::vector<std::string> arguments{
        "", "deux mots", "l'un \"ou\" l'autre", "$HOME * `id` \\n", "ligne\nligne\n", "-", "é🎉"};
    std::vector<std::string> fils{"-c", R"(printf '%s|' "$#" "$@")", "sh"};
    fils.insert(fils.end(), arguments.begin(), arguments.end());
    EXPECT_EQ(Systeme::commande("/bin/sh", fils).sortie,
              "7||deux mots|l'un \"ou\" l'autre|$HOME * `id` \\n|ligne\nligne\n|-|é🎉|");
    EXPECT_EQ(marionnette({}).code, 99); // n'en a reçu aucun
}

TEST_F(Commande, LEnfantNeRecoitNiDescripteurNiReglageDeSignal) {
    const int laisse = ::open("/dev/null", O_RDONLY); // passerait à un enfant ordinaire
    ASSERT_EQ(::dup2(laisse, 900), 900);
    sigset_t retenus;
    sigemptyset(&retenus);
    sigaddset(&retenus, SIGTERM);
    ::pthread_sigmask(SIG_BLOCK, &retenus, nullptr);
    std::signal(SIGPIPE, SIG_IGN);
    EXPECT_EQ(marionnette({"décrire"}).sortie,
              "descripteurs 0 1 2\nsignaux retenus\nSIGPIPE ordinaire\n");
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
        EXPECT_EQ(marionnette({"écrire", debut}).sortie, coupes[i].first);
        EXPECT_EQ(marionnette({"écrire", suite}).sortie, coupes[i].second);
        EXPECT_EQ(marionnette({"écrire", debut, suite}).sortie, texte); // reçu en deux fois
    }
}

TEST_F(Commande, LaFinEstCelleDuProgrammeQuoiQuIlFasseDeSaSortie) {
    const Systeme::Resultat ferme = marionnette({"fermer", "42"});
    EXPECT_EQ(ferme.sortie, "fermé");
    EXPECT_EQ(ferme.code, 42);
    const Systeme::Resultat descendant = marionnette({"descendant"}); // qui tient le tube
    EXPECT_EQ(descendant.sortie, "descendant");
    EXPECT_EQ(descendant.code, 3);
    for (const int signal : {SIGKILL, SIGTERM, SIGPIPE}) {
        const Systeme::Resultat tue = marionnette({"mourir", std::to_string(signal)});
        EXPECT_EQ(tue.sortie, "avant");
        EXPECT_EQ(tue.code, signal);
    }
}

// Un enfant qui hériterait du tube d'un autre le retiendrait : personne ne finirait avant le
// premier, qui attend tous les autres.
TEST_F(Commande, HuitCommandesALaFoisNeSAttendentPasEtNeSeMelentPas) {
    const std::string signal = dossier / "signal";
    std::atomic<int> fautes{0};
    std::thread longue([&] { fautes += marionnette({"attendre", signal}).code; });
    std::vector<std::thread> courtes;
    for (char lettre = 'a'; lettre < 'h'; ++lettre) {
        courtes.emplace_back([&fautes, lettre] {
            for (int tour = 0; tour < 20; ++tour) {
                const Systeme::Resultat fin = marionnette({"inonder", "300000", {lettre}});
                fautes += fin.code != 0 || fin.sortie != std::string(300000, lettre) ? 1 : 0;
            }
        });
    }
    for (std::thread& courte : courtes) {
        courte.join();
    }
    poser("signal", "", 0600);
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

TEST_F(Commande, CeQuiNEstPasUnProgrammeNEstPasLance) {
    const std::string nu = poser("nu", kScript, 0644);
    for (const std::string& chemin : {dossier.string() + "/absent", dossier.string(), nu,
                                      nu + "/dessous", std::string(), std::string("/dev/null")}) {
        const Systeme::Resultat fin = Systeme::commande(chemin);
        EXPECT_EQ(fin.sortie, "") << chemin;
        EXPECT_EQ(fin.code, -1) << chemin;
    }
    EXPECT_EQ(Systeme::commande(poser("bon", kScript, 0755)).sortie, "lancé\n");
}

TEST_F(Commande, UnLancementRefuseParLeSystemeDitPourquoi) {
    const std::string format = poser("format", "ni programme ni script\n", 0755);
    const std::string orphelin = poser("orphelin", "#!/nulle/part\n", 0755);
    for (const auto& [chemin, cause] :
         {std::pair{format, "le format du programme n'est pas reconnu (erreur 8)."},
          std::pair{orphelin, "fichier ou dossier introuvable (erreur 2)."}}) {
        const Systeme::Resultat fin = Systeme::commande(chemin);
        EXPECT_EQ(fin.sortie, "« " + chemin + " » : " + cause);
        EXPECT_EQ(fin.code, -1);
    }
}

TEST_F(Commande, UnDossierExisteUnLienRompuNon) {
    EXPECT_TRUE(Systeme::existe(dossier));
    EXPECT_TRUE(Systeme::existe(poser("fichier", "", 0)));
    fs::create_symlink("absent", dossier / "lien");
    EXPECT_FALSE(Systeme::existe(dossier / "lien"));
    EXPECT_FALSE(Systeme::existe(dossier / "fichier/dessous"));
}
