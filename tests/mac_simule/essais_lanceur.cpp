// Le lanceur, avec un script à la place de l'exécutable de l'assistant.

#include "mac_essai.hpp"

namespace fs = std::filesystem;

namespace {

// Installe un assistant dont voici le corps ; ses démarrages s'inscrivent dans etat/passages.
void installer(const MacEssai& mac, const std::string& corps) {
    mac.poserOutil("/Applications/Assistant Lumivia.app/Contents/MacOS/Assistant Lumivia",
                   "M=$LUMIVIA_MAC\necho \"passage $*\" >>\"$M/etat/passages\"\n" + corps);
}

Systeme::Resultat derouler(const MacEssai& mac, const std::string& suite = "",
                           const std::string& variables = "") {
    return lancer(variables + " timeout 60 " + cite(LANCEUR) + " " + cite(mac.racine()) + suite);
}

} // namespace

TEST(Lanceur, RendLaFinDeLAssistantEtLuiPasseSesArguments) {
    const MacEssai mac("pret");
    installer(mac, "exit 0\n");
    EXPECT_EQ(derouler(mac, " --assistant --un 'deux mots'").code, 0);
    EXPECT_EQ(mac.lire("/etat/passages"), "passage --un deux mots\n");
    installer(mac, "exit 7\n");
    EXPECT_EQ(derouler(mac).code, 7);
    installer(mac, "kill -SEGV $$\n");
    const Systeme::Resultat fini = derouler(mac);
    EXPECT_EQ(fini.code, 1);
    EXPECT_TRUE(contient(fini.sortie, "arrêté brutalement (signal 11)"));
}

TEST(Lanceur, UneDemonstrationQuiNAvancePasFinitEnEchec) {
    const MacEssai mac("pret");
    installer(mac, "exit 0\n");
    fs::create_directories(mac.racine() / "etat/demonstration");
    const Systeme::Resultat fini = derouler(mac, "", "LUMIVIA_DEMONSTRATION=x");
    EXPECT_EQ(fini.code, 1);
    EXPECT_TRUE(contient(fini.sortie, "avant la dernière page"));
    EXPECT_EQ(mac.lire("/etat/passages").size(), 5 * std::string("passage \n").size());
}

TEST(Lanceur, UneDemonstrationSansFinSArreteALHeure) {
    const MacEssai mac("pret");
    installer(mac, "cd \"$M\"; exec sleep 300\n");
    mac.poserEtat("duree_demonstration", "1\n");
    const Systeme::Resultat fini = derouler(mac, "", "LUMIVIA_DEMONSTRATION=x");
    EXPECT_EQ(fini.code, 1);
    EXPECT_TRUE(contient(fini.sortie, "1 secondes n'ont pas suffi"));
    EXPECT_FALSE(mac.habite());
    mac.poserEtat("duree_demonstration", "1 h\n");
    EXPECT_EQ(derouler(mac).code, 2);
}

TEST(Lanceur, AttendLaFenetreDuTerminalMaisPasUnProgrammeDeLaMachine) {
    const MacEssai mac("pret");
    mac.poserOutil("/Users/finir.command",
                   "sleep 1\ntouch \"$LUMIVIA_PREFIXE/etat/apres\"\n"
                   "osascript -e 'tell application \"Terminal\"' -e 'close (every window whose "
                   "name contains \"finir\")'");
    installer(mac, "cd \"$M\"; setsid -f sleep 300; usr/bin/open -a Terminal "
                   "/Users/finir.command\n");
    EXPECT_EQ(derouler(mac).code, 0);
    EXPECT_TRUE(mac.existe("/etat/apres"));
    EXPECT_FALSE(mac.habite());
}

TEST(Lanceur, UnSignalMetFinATout) {
    const MacEssai mac("pret");
    installer(mac, "cd \"$M\"; setsid -f sleep 300; touch pret; exec sleep 300\n");
    for (const auto& [signal, statut] :
         {std::pair{"HUP", "129\n"}, {"INT", "130\n"}, {"TERM", "143\n"}}) {
        mac.retirer("/pret");
        const Systeme::Resultat fini =
            lancer(cite(LANCEUR) + " " + cite(mac.racine()) + " & while [ ! -e " +
                   cite(mac.racine() / "pret") + " ]; do sleep 0.05; done; kill -" + signal +
                   " $!; wait $!; echo $?");
        EXPECT_EQ(fini.sortie, statut);
        EXPECT_FALSE(mac.habite());
    }
}

TEST(Lanceur, RefuseCeQuiNEstPasUnMac) {
    EXPECT_EQ(lancer(cite(LANCEUR) + " /tmp").code, 2);
    EXPECT_EQ(lancer(cite(LANCEUR)).code, 2);
    const MacEssai mac("pret");
    const Systeme::Resultat sansPaquet = derouler(mac);
    EXPECT_EQ(sansPaquet.code, 1);
    EXPECT_TRUE(contient(sansPaquet.sortie, "dossier Applications"));
    mac.retirer("/private");
    const Systeme::Resultat abime = derouler(mac);
    EXPECT_EQ(abime.code, 2);
    EXPECT_TRUE(contient(abime.sortie, "n'est pas entier : il manque « private/tmp »"));
}
