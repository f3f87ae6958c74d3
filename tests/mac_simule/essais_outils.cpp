// Les outils du Mac simulé, comparés aux formes relevées sur de vrais Mac.

#include "mac_essai.hpp"

namespace {

// Un fait posé d'abord, s'il est nommé ; la réponse est tout le texte, celle d'un refus le
// contient.
struct Cas {
    std::string commande;
    int code;
    std::string reponse, fait{}, valeur{};
};

void suivre(const MacEssai& mac, const std::vector<Cas>& table) {
    for (const Cas& cas : table) {
        if (!cas.fait.empty()) {
            mac.poserEtat(cas.fait, cas.valeur);
        }
        const Systeme::Resultat dit = mac.outil(cas.commande);
        EXPECT_EQ(dit.code, cas.code) << cas.commande;
        EXPECT_TRUE(cas.code == 0 ? dit.sortie == cas.reponse : contient(dit.sortie, cas.reponse))
            << cas.fait << cas.valeur << cas.commande << "\n"
            << dit.sortie;
    }
}

// Les lignes d'extension d'une forme, et les catégories autres que celle des pilotes.
std::string faitDeLaForme(const std::string& texte) {
    std::istringstream lignes(texte);
    std::string fait;
    for (std::string ligne; std::getline(lignes, ligne);) {
        if (ligne.rfind("---", 0) == 0) {
            fait += ligne.substr(0, ligne.find(' ', 4)) + "\n";
        } else if (ligne.find('\t') != std::string::npos && ligne.rfind("enabled", 0) != 0) {
            fait += ligne + "\n";
        }
    }
    return fait;
}

} // namespace

TEST(Outils, repondentDApresLesFaits) {
    const MacEssai mac("complet");
    suivre(mac, {{"/usr/sbin/sysctl -n hw.optional.arm64", 0, "1\n"},
                 {"/usr/sbin/sysctl -n kern.boottime", 0, mac.lire("/etat/demarrage")},
                 // Une valeur tapée à la main, sans fin de ligne.
                 {"/usr/sbin/sysctl -n hw.model", 0, "Mac16,1\n", "modele", "Mac16,1"},
                 {"/usr/bin/kmutil inspect", 0, forme("kmutil-inspect-avec-d2xxhelper.txt")},
                 {"/usr/bin/kmutil inspect", 0, forme("kmutil-inspect-sans-d2xxhelper.txt"),
                  "kexts_charges", ""}});
}

TEST(Outils, kmutilReconstruitSelonLApprobation) {
    const MacEssai mac("complet");
    const std::string rien = "Checking the auxiliary kernel collection...\n";
    const std::string rebuild = "/usr/bin/kmutil rebuild";
    suivre(mac,
           {{rebuild, 0, rien + "No changes detected\n"}, {rebuild, 0, rien, "kmutil", "muet\n"}});
    mac.retirer("/Library/Extensions/D2xxHelper.kext");
    const std::string agent = "/System/Library/CoreServices/SecurityAgent.app/Contents/MacOS/";
    mac.poser(agent + "SecurityAgent", "#!/bin/sh\nexit 1\n"); // la personne annule
    ::unsetenv("QT_QPA_PLATFORM");
    ::setenv("DISPLAY", ":0", 1);
    suivre(mac, {{rebuild, 250, "LocalAuthentication Code=-6", "kmutil", "confirme\n"}});
    ::unsetenv("DISPLAY");
    suivre(mac, {{rebuild, 250, "LocalAuthentication Code=-6", "kmutil", "refuse\n"},
                 {rebuild, 0, forme("kmutil-rebuild-retrait.txt"), "kmutil", "confirme\n"},
                 {rebuild, 0, rien + "No changes detected\n"}});
}

TEST(Outils, kmutilChangeAvecLaVersion) {
    suivre(MacEssai("complet"),
           {{"/usr/bin/kmutil help | grep rebuild", 1, "", "version", "11.3.1\n"},
            {"/usr/bin/kmutil rebuild", 64, "Unexpected argument"},
            {"/usr/bin/kmutil install --update-all", 0, ""},
            {"/usr/bin/kmutil help | grep -c rebuild", 0, "1\n", "version", "11.4\n"},
            {"/usr/bin/kmutil help | grep -c rebuild", 0, "1\n", "version", "13.0\n"},
            {"/usr/bin/kmutil install --update-all", 1, "Missing Developer Kit: As of macOS"},
            {"/usr/bin/kmutil imprevu", 64, "Unexpected argument"}});
}

TEST(Outils, ceuxDUnVieuxMacOntLaFormeDeMacos1015) {
    std::string aucune = forme("kextstat-macos10.15-ftdi.txt");
    const auto serie = aucune.find("  161 ");
    aucune.erase(serie, aucune.find('\n', serie) + 1 - serie);
    suivre(MacEssai("ancien-macos"),
           {{"/usr/sbin/sysctl -n hw.optional.arm64", 1, forme("sysctl-arm64-intel.txt")},
            {"/usr/sbin/kextstat | grep -c 'com.FTDI.driver.D2xxHelper (2.0.0) '", 0, "1\n"},
            {"/usr/sbin/kextstat", 0, aucune, "kexts_charges", ""},
            {"/usr/sbin/kextcache", 64, "usage"}});
}

TEST(Outils, systemextensionsctlALesFormesDesDeuxMacos) {
    const MacEssai mac("extension-seule");
    const std::string lister = "/usr/bin/systemextensionsctl list";
    suivre(mac, {{lister, 0, forme("sysext-ftdi-actif-macos15.txt")},
                 {"/usr/bin/systemextensionsctl imprevu", 64, ""}});
    for (const char* nom :
         {"sysext-aucune.txt", "sysext-sans-ftdi.txt", "sysext-ftdi-desactive-macos15.txt",
          "sysext-ftdi-arret-en-cours.txt", "sysext-ftdi-deux-lignes-macos14.txt"}) {
        mac.poserEtat("version", contient(nom, "macos14") ? "14.5.0\n" : "15.1\n");
        suivre(mac, {{lister, 0, forme(nom), "extensions_systeme", faitDeLaForme(forme(nom))}});
    }
}
