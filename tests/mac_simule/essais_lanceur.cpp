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

TEST(Lanceur, rendLaFinDeLAssistant) {
    const MacEssai mac("pret");
    installer(mac, "exit 0\n");
    EXPECT_EQ(derouler(mac, " --assistant --un 'deux mots'").code, 0);
    EXPECT_EQ(mac.lire("/etat/passages"), "passage --un deux mots\n");
    mac.poserEtat("duree_demonstration", "1 h\n");
    EXPECT_EQ(derouler(mac).code, 2);
    installer(mac, "exit 7\n");
    mac.retirer("/etat/duree_demonstration");
    EXPECT_EQ(derouler(mac).code, 7);
}

TEST(Lanceur, ditPourquoiLAssistantNEstPasAlleAuBout) {
    const MacEssai mac("pret");
    fs::create_directories(mac.racine() / "etat/demonstration");
    for (const auto& [corps, duree, raison] :
         {std::tuple{"kill -SEGV $$\n", "", "arrêté brutalement (signal 11)"},
          {"exit 0\n", "60", "avant la dernière page"},
          {"cd \"$M\"; exec sleep 300\n", "1", "1 secondes n'ont pas suffi"}}) {
        mac.poserEtat("duree_demonstration", duree);
        installer(mac, corps);
        const Systeme::Resultat fini =
            derouler(mac, "", *duree == 0 ? "" : "LUMIVIA_DEMONSTRATION=x");
        EXPECT_EQ(fini.code, 1);
        EXPECT_TRUE(contient(fini.sortie, raison)) << fini.sortie;
        EXPECT_FALSE(mac.habite());
    }
    EXPECT_EQ(mac.lire("/etat/passages").size(), (1 + 5 + 1) * std::string("passage \n").size());
}

TEST(Lanceur, attendLaFenetreDuTerminalMaisPasUnProgrammeDeLaMachine) {
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

TEST(Lanceur, apresUnRedemarrageUnAgentAbimeNEmpechePasLesAutres) {
    const MacEssai mac("pret");
    installer(mac, "[ $# -gt 0 ] || { touch \"$M/etat/redemarrage_demande\"; exec sleep 300; }\n");
    const std::string assistant =
        "<string>/Applications/Assistant Lumivia.app/Contents/MacOS/Assistant Lumivia</string>";
    int nombre = 0; // sans programme, d'un autre type, d'un autre codage, daté, coupé ; puis entier
    for (const std::string& programme :
         {std::string("<array/>"), assistant, std::string("<array><true/></array>"),
          std::string("<array><string>\xe9</string></array>"), std::string("<array"),
          "<array>" + assistant + "</array><key>x</key><date>hier</date>",
          "<array>" + assistant + "<string>rouvert</string></array>"}) {
        mac.poser(mac.maison() + "/Library/LaunchAgents/" + std::to_string(nombre++) + ".plist",
                  "<plist><dict><key>Label</key><string>a</string><key>RunAtLoad</key><true/>"
                  "<key>ProgramArguments</key>" +
                      programme + "</dict></plist>");
    }
    const Systeme::Resultat fini = derouler(mac);
    EXPECT_EQ(fini.code, 0);
    EXPECT_EQ(mac.lire("/etat/passages"), "passage \npassage rouvert\n");
    EXPECT_EQ(std::count(fini.sortie.begin(), fini.sortie.end(), '\n'), 6) << fini.sortie;
}

TEST(Lanceur, unSignalMetFinATout) {
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
