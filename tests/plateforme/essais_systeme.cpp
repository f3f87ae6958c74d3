// Les chemins, les fichiers et les préférences, vus du programme.

#include "commun/mac.hpp"
#include "plateforme/fichiers.hpp"
#include "plateforme/posix/particularites.hpp"
#include "plateforme/preferences.hpp"

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

TEST(Chemins, seulsLesDossiersDuMacPassentSousLaRacine) {
    const essai::Mac mac;
    for (const std::string chemin : {"/Library", "/Library/x", "/Users/Zoé du son",
                                     "/Applications/", "/System/x", "/usr/bin/open", "/usr/sbin"}) {
        EXPECT_EQ(plateforme::natif::cheminReel(chemin), mac.reel(chemin));
    }
    for (const std::string chemin :
         {"/LibraryX", "/usr/lib/x", "/usr", "/bin/sh", "/", "", "Library/x", "/tmp/Library/x"}) {
        EXPECT_EQ(plateforme::natif::cheminReel(chemin), chemin);
    }
    const std::string reels = mac.reel("/Library/a").string() + ", " + mac.reel("/Users").string();
    EXPECT_EQ(plateforme::natif::texteAffiche(reels), "/Library/a, /Users");
}

TEST(Fichiers, unFichierPlusGrosQueLaLimiteNeSeLitPas) {
    const essai::Mac mac;
    mac.poser("/Users/f", "cinq!");
    EXPECT_EQ(plateforme::lireFichier("/Users/f", 5), "cinq!");
    EXPECT_FALSE(plateforme::lireFichier("/Users/f", 4).has_value());
}

TEST(Fichiers, retirerUnDossierNeToucheRienDerriereSesLiens) {
    const essai::Mac mac;
    mac.poser("/Users/cible/dedans", "à garder");
    mac.poser("/Users/dossier/sous/fichier", "");
    fs::create_directory_symlink("../cible", mac.reel("/Users/dossier/lien"));
    EXPECT_EQ(plateforme::supprimer("/Users/dossier"), std::nullopt);
    EXPECT_FALSE(fs::exists(mac.reel("/Users/dossier")));
    EXPECT_EQ(mac.lire("/Users/cible/dedans"), "à garder");
}

TEST(Preferences, surviventAUneFinBrutale) {
    const essai::Mac mac;
    for (const char* ecrite : {"{ sec = 1785291581 } été\nfin ", ""}) {
        if (::fork() == 0) {
            plateforme::ecrirePreference("cle", ecrite);
            std::raise(SIGKILL);
        }
        ASSERT_GT(::wait(nullptr), 0);
        EXPECT_EQ(plateforme::lirePreference("cle"), ecrite);
    }
    plateforme::retirerPreference("cle");
    EXPECT_FALSE(plateforme::lirePreference("cle").has_value());
}
