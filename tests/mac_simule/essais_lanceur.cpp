// Le lanceur, avec un script à la place de l'exécutable de l'assistant.

#include "mac_essai.hpp"

namespace fs = std::filesystem;

namespace {

// Installe un assistant dont voici le corps ; ses démarrages s'inscrivent dans etat/passages.
void installer(const MacEssai& mac, const std::string& corps) {
    mac.poserOutil("/Applications/Assistant Lumivia.app/Contents/MacOS/Assistant Lumivia",
                   "M=$LUMIVIA_MAC\nA=\"$M/Users/Zoé du son/Library/LaunchAgents\"\n"
                   "echo \"passage $*\" >>\"$M/etat/passages\"\n"
                   "passages=$(grep -c . \"$M/etat/passages\")\n" +
                       corps);
}

const std::string kProgrammer = R"(
mkdir -p "$A" && cat >"$A/fr.essai.relance.plist" <<'FIN'
<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0"><dict><key>Label</key><string>fr.essai.relance</string>
<key>ProgramArguments</key><array><string>/usr/bin/open</string>
<string>/Applications/Assistant Lumivia.app</string></array>
<key>RunAtLoad</key><true/></dict></plist>
FIN
)";
const std::string kRedemarrer =
    "touch \"$M/etat/redemarrage_demande\"; while :; do sleep 0.1; done\n";

Fini derouler(const MacEssai& mac, const std::string& suite = "",
              const std::string& variables = "") {
    return lancer(variables + " timeout 60 " + cite(LANCEUR) + " " + cite(mac.racine()) + suite);
}

Fini demonstration(const MacEssai& mac) {
    fs::create_directories(mac.racine() / "etat/demonstration");
    return derouler(mac, "", "LUMIVIA_DEMONSTRATION=x");
}

} // namespace

TEST(Lanceur, RendLaFinDeLAssistantEtLuiPasseSesArguments) {
    const MacEssai mac("pret");
    installer(mac, "exit 0\n");
    EXPECT_EQ(derouler(mac, " --assistant --un 'deux mots'").code, 0);
    EXPECT_EQ(mac.fait("passages"), "passage --un deux mots\n");
    installer(mac, "exit 7\n");
    EXPECT_EQ(derouler(mac).code, 7);
    installer(mac, "kill -SEGV $$\n");
    const Fini fini = derouler(mac);
    EXPECT_EQ(fini.code, 1);
    EXPECT_TRUE(contient(fini.sortie, "arrêté brutalement (signal 11)"));
}

TEST(Lanceur, LeRedemarrageALieuEtLAgentRouvreLAssistant) {
    const MacEssai mac("complet");
    fs::remove_all(mac.racine() / "Library/Extensions/D2xxHelper.kext");
    mac.poserEtat("retraits_en_attente", "/Library/Extensions/D2xxHelper.kext\n");
    const std::string avant = mac.fait("demarrage");
    installer(mac, "if [ \"$passages\" = 1 ]; then\n" + kProgrammer + kRedemarrer +
                       "fi\nrm \"$A\"/*; sleep 1; exit 5\n");
    EXPECT_EQ(derouler(mac).code, 5); // la fin du second, que open a détaché
    EXPECT_EQ(mac.fait("passages"), "passage \npassage \n");
    EXPECT_NE(mac.fait("demarrage"), avant);
    EXPECT_EQ(mac.fait("kexts_charges"), "");
    EXPECT_FALSE(mac.existe("/etat/redemarrage_demande"));
    EXPECT_FALSE(mac.existe("/etat/retraits_en_attente"));
}

TEST(Lanceur, UneDemonstrationQuiNAvancePasFinitEnEchec) {
    const MacEssai mac("pret");
    installer(mac, "exit 0\n");
    const Fini fini = demonstration(mac);
    EXPECT_EQ(fini.code, 1);
    EXPECT_TRUE(contient(fini.sortie, "avant la dernière page"));
    EXPECT_EQ(mac.fait("passages").size(), 5 * std::string("passage \n").size());
}

TEST(Lanceur, UneDemonstrationNAttendPasCeQuiTraine) {
    const MacEssai mac("pret");
    installer(mac, "touch \"$M/etat/demonstration/fini\"; setsid -f sleep 300; exit 0\n");
    const auto debut = std::chrono::steady_clock::now();
    EXPECT_EQ(demonstration(mac).code, 0);
    EXPECT_LT(std::chrono::steady_clock::now() - debut, std::chrono::seconds(30));
}

TEST(Lanceur, UnSignalMetFinATout) {
    const MacEssai mac("pret");
    installer(mac, "cd \"$M\"; setsid -f sleep 300; touch pret; exec sleep 300\n");
    const Fini fini = lancer(cite(LANCEUR) + " " + cite(mac.racine()) + " & while [ ! -e " +
                             cite(mac.racine() / "pret") +
                             " ]; do sleep 0.05; done; kill -INT $!; wait $!; echo $?");
    EXPECT_EQ(fini.sortie, "130\n");
    EXPECT_FALSE(mac.habite());
}

TEST(Lanceur, RefuseCeQuiNEstPasUnMac) {
    EXPECT_EQ(lancer(cite(LANCEUR) + " /tmp").code, 2);
    EXPECT_EQ(lancer(cite(LANCEUR)).code, 2);
    const MacEssai mac("pret");
    const Fini sansPaquet = derouler(mac);
    EXPECT_EQ(sansPaquet.code, 1);
    EXPECT_TRUE(contient(sansPaquet.sortie, "dossier Applications"));
}
