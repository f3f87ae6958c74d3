// Ce que le système garde ou répond, et le programme de ces essais.
#include "gnustep/proprietes.hpp"

#include "mac_simule/gnustep/references.hpp"
#include "mac_simule/robot/regard.hpp"
#include "plateforme/boucle.hpp"
#include "plateforme/langue.hpp"
#include "plateforme/liste_proprietes.hpp"
#include "plateforme/paquet.hpp"
#include "plateforme/peripheriques_usb.hpp"
#include "plateforme/preferences.hpp"
#include "plateforme/presse_papiers.hpp"
#include "plateforme/processus.hpp"
#include "plateforme/systeme_exploitation.hpp"

#include <csignal>
#include <ctime>
#include <fstream>
#include <thread>

using namespace essai;

namespace {

void poserFait(const std::string& fait, const std::string& texte) {
    std::ofstream("/mac/etat/" + fait) << texte;
}

} // namespace

TEST_F(Proprietes, unePreferenceSurvitAUnKill) {
    for (const char* geste : {"ecrire", "retirer"}) {
        EXPECT_EQ(plateforme::executer("/proc/self/exe", {geste}).octets, "");
        const std::string lue = plateforme::executer("/proc/self/exe", {"lire"}).octets;
        EXPECT_EQ(lue, geste == std::string("ecrire") ? "{ sec = 17 } été ✅\nfin " : "(rien)");
    }
}

TEST_F(Proprietes, unAutreProcessusRelitLePressePapiers) {
    std::this_thread::sleep_for(std::chrono::milliseconds(500)); // gpbs s'ouvre à peine
    plateforme::copierTexte("premier");
    plateforme::copierTexte("l'été\nsuite");
    EXPECT_EQ(plateforme::executer("/proc/self/exe", {"coller"}).octets, "l'été\nsuite");
}

TEST_F(Proprietes, laDateEstLocaleEtALaForme) {
    [NSTimeZone setDefaultTimeZone:[NSTimeZone timeZoneWithName:@"Asia/Kolkata"]];
    ::setenv("TZ", "Asia/Kolkata", 1);
    ::tzset();
    const auto ecrite = [](std::time_t instant) {
        char texte[32] = {};
        std::strftime(texte, sizeof texte, "%Y-%m-%d %H:%M:%S", std::localtime(&instant));
        return std::string(texte);
    };
    const std::string avant = ecrite(std::time(nullptr));
    const std::string lue = plateforme::horodatageLocal();
    EXPECT_LE(avant, lue);
    EXPECT_LE(lue, ecrite(std::time(nullptr)));
    EXPECT_EQ(lue.size(), avant.size());
}

TEST_F(Proprietes, laComparaisonEstCelleDeLaLangue) {
    EXPECT_TRUE(plateforme::seRangeAvant("École", "faute"));
    EXPECT_TRUE(plateforme::seRangeAvant("a", "B"));
    EXPECT_FALSE(plateforme::seRangeAvant("B", "a"));
    EXPECT_FALSE(plateforme::seRangeAvant("LUZ", "luz"));
    EXPECT_FALSE(plateforme::seRangeAvant("luz", "LUZ"));
}

TEST_F(Proprietes, laRechercheUSBRendCeQuElleTientEtNePrendQueDesTextes) {
    poserFait("usb/a", "fabricant 0x0403\nproduit 0x6001\nserie É1\n");
    poserFait("usb/b", "fabricant 0x0403\nproduit 0x6001\n");
    poserFait("usb/c", "fabricant 0x0403\nproduit 0x6001\nserie_nombre 42\n");
    poserFait("usb/d", "fabricant 0x0403\nproduit 0x6015\nserie AUTRE\n");
    poserFait("usb/e", "fabricant 0x0404\nproduit 0x6001\nserie AUTRE\n");
    std::remove("/mac/etat/usb/emetteur-1");
    using Numeros = std::vector<std::optional<std::string>>;
    {
        const Bassin bassin;
        EXPECT_EQ(plateforme::numerosDeSerieUSB(0x0403, 0x6001),
                  (Numeros{"É1", std::nullopt, std::nullopt}));
    }
    EXPECT_EQ(gnustep::referencesTenues(), 0);
}

TEST_F(Proprietes, leRedemarrageSeDemandeParSonTexteExact) {
    plateforme::demanderRedemarrage();
    std::string demande;
    std::getline(std::ifstream("/mac/etat/redemarrage_demande"), demande);
    EXPECT_EQ(demande, "oui");
}

TEST_F(Proprietes, lePaquetDitCeQuIlAEtCeQuIlNAPas) {
    const std::string paquet = plateforme::cheminPaquet();
    EXPECT_EQ(paquet, "/Applications/Assistant Lumivia.app");
    EXPECT_FALSE(plateforme::cheminRessource("absente", "png").has_value());
    const auto presente = plateforme::cheminRessource("05-terminal-mot-de-passe", "png");
    const auto image = plateforme::VueImage::lire(presente.value_or(""), "");
    ASSERT_TRUE(image.has_value());
    EXPECT_GT(image->tailleImage().largeur, image->tailleImage().hauteur);
    EXPECT_FALSE(plateforme::VueImage::lire(paquet + "/absente.png", "").has_value());
    using Genre = plateforme::ValeurInfo::Genre;
    EXPECT_EQ(plateforme::valeurInfo("Inconnue").genre, Genre::absente);
    EXPECT_EQ(plateforme::valeurInfo("CFBundlePackageType").texte, "APPL");
    EXPECT_EQ(plateforme::valeurInfo("CFBundlePackageType").genre, Genre::texte);
    EXPECT_EQ(plateforme::valeurInfo("NSHighResolutionCapable").genre, Genre::autre);
}

namespace {

// Ce qu'un second processus fait d'un premier.
void jouer(const std::string& geste) {
    const Bassin bassin;
    if (geste == "ecrire") {
        plateforme::ecrirePreference("cle", "{ sec = 17 } été ✅\nfin ");
        std::raise(SIGKILL);
    } else if (geste == "retirer") {
        plateforme::retirerPreference("cle");
        std::raise(SIGKILL);
    } else if (geste == "lire") {
        std::fputs(plateforme::lirePreference("cle").value_or("(rien)").c_str(), stdout);
    } else {
        std::fputs(robot::pressePapiers().c_str(), stdout);
    }
}

} // namespace

int main(int nombre, char** arguments) {
    testing::InitGoogleTest(&nombre, arguments);
    if (nombre == 2 && std::string(arguments[1]) != "/mac") {
        jouer(arguments[1]);
        return EXIT_SUCCESS;
    }
    return RUN_ALL_TESTS();
}
