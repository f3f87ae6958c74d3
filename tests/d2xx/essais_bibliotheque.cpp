// La bibliothèque telle que le programme la voit : chargée par dlopen, devant un Mac simulé.
#include "bibliotheque.hpp"
#include "commun/mac.hpp"

#include <atomic>
#include <fcntl.h>
#include <sys/file.h>

using namespace essai;

namespace {

const char* const emetteur = "fabricant 0x0403\nproduit 0x6001\nserie A1B2C3\n";

class BibliothequeD2xx : public testing::Test {
protected:
    void debrancher() const { std::filesystem::rename(fichier(), mac.reel("/etat/tiroir")); }

    void rebrancher() const { std::filesystem::rename(mac.reel("/etat/tiroir"), fichier()); }

    bool echoue() const {
        return attendre([this] { return d2xx.envoyer(255, 0) == d2xx::erreurES; });
    }

    std::filesystem::path fichier() const { return mac.reel("/etat/usb/seul"); }

    void SetUp() override {
        mac.retirer("/etat/usb");
        mac.poserEtat("usb/seul", emetteur);
    }

    Mac mac;
    Bibliotheque d2xx;
};

std::ptrdiff_t nombreDe(const char* dossier) {
    return std::distance(std::filesystem::directory_iterator(dossier), {});
}

} // namespace

TEST_F(BibliothequeD2xx, LOuvertureRepondDApresLesFaits) {
    EXPECT_EQ(d2xx.appeler<decltype(FT_Open)>("FT_Open", 0, nullptr), d2xx::parametreInvalide);
    EXPECT_EQ(d2xx.ouvrir(1), d2xx::introuvable);
    EXPECT_EQ(d2xx.ouvrir(-1), d2xx::introuvable);
    debrancher();
    mac.poserEtat("usb/autre", "fabricant 0x2341\nproduit 0x6001\n");
    EXPECT_EQ(d2xx.ouvrir(), d2xx::introuvable) << "un autre fabricant n'est pas un émetteur";
    rebrancher();
    mac.poserEtat("emetteur_occupe", "");
    EXPECT_EQ(d2xx.ouvrir(), d2xx::nonOuvert);
    EXPECT_EQ(d2xx.poignee, nullptr);
    mac.retirer("/etat/emetteur_occupe");
    EXPECT_EQ(d2xx.ouvrir(), d2xx::reussi);
    EXPECT_EQ(Bibliotheque(d2xx).ouvrir(), d2xx::nonOuvert) << "il est déjà tenu";
    EXPECT_EQ(d2xx.fermer(), d2xx::reussi);
    EXPECT_EQ(d2xx.fermer(), d2xx::poigneeInconnue);
    EXPECT_EQ(d2xx.envoyer(0, 0), d2xx::poigneeInconnue);
}

TEST_F(BibliothequeD2xx, UnAutreProcessusTientLEmetteurJusquASaFin) {
    ASSERT_EQ(d2xx.ouvrir(), 0U);
    const std::string chemin = mac.reel("/etat/reception");
    const int autre = ::open(chemin.c_str(), O_RDWR | O_CLOEXEC);
    EXPECT_NE(::flock(autre, LOCK_EX | LOCK_NB), 0);
    d2xx.fermer();
    EXPECT_EQ(::flock(autre, LOCK_EX | LOCK_NB), 0);
    EXPECT_EQ(d2xx.ouvrir(), d2xx::nonOuvert);
    ::close(autre);
    EXPECT_EQ(d2xx.ouvrir(), d2xx::reussi);
}

TEST_F(BibliothequeD2xx, LesTramesArriventAuProjecteurDansLesDeuxModeles) {
    for (const char* modele : {"immediat", "realiste"}) {
        mac.poserEtat("puce_dmx", modele);
        ASSERT_TRUE(d2xx.ouvrirPourDmx());
        EXPECT_EQ(reception().ouverte, 1);
        for (int i = 0; i < 8; ++i) {
            ASSERT_EQ(d2xx.envoyer(i < 4 ? 255 : 128), 0U);
        }
        EXPECT_EQ(d2xx.fermer(), 0U);
        EXPECT_EQ(reception().ouverte, 0);
        EXPECT_EQ(reception().trames, 8U) << modele;
        EXPECT_EQ(reception().correctes, 8U) << modele;
        EXPECT_EQ(reception().niveauMax, 128);
        EXPECT_EQ(reception().processus, ::getpid());
    }
}

TEST_F(BibliothequeD2xx, UnReglageOublieOuFauxNEclaireRien) {
    using Reglage = void (*)(const Bibliotheque&);
    for (const Reglage regler :
         std::initializer_list<Reglage>{[](const auto& b) { b.format(), b.flux(); },
                                        [](const auto& b) { b.debit(), b.flux(); },
                                        [](const auto& b) { b.debit(), b.format(); },
                                        [](const auto& b) { b.debit(9600), b.format(), b.flux(); },
                                        [](const auto& b) { b.debit(), b.format(0), b.flux(); }}) {
        ASSERT_EQ(d2xx.ouvrir(), 0U);
        regler(d2xx);
        EXPECT_EQ(d2xx.envoyer(255, 0), 0U);
        d2xx.fermer();
        EXPECT_EQ(reception().verdict, d2xx::Verdict::ligneMalReglee);
        EXPECT_EQ(reception().niveauMax, 0);
    }
}

TEST_F(BibliothequeD2xx, UnEmetteurDebrancheNeRevientQueParUneNouvelleOuverture) {
    ASSERT_TRUE(d2xx.ouvrirPourDmx());
    EXPECT_EQ(d2xx.envoyer(255), 0U);
    debrancher();
    ASSERT_TRUE(echoue());
    EXPECT_EQ(Bibliotheque(d2xx).ouvrir(), d2xx::introuvable);
    rebrancher();
    EXPECT_EQ(d2xx.envoyer(255, 0), d2xx::erreurES) << "l'ancienne poignée reste perdue";
    const Bibliotheque ancienne = d2xx;
    ASSERT_TRUE(d2xx.ouvrirPourDmx());
    EXPECT_EQ(d2xx.envoyer(255), 0U);
    EXPECT_EQ(ancienne.envoyer(255, 0), d2xx::poigneeInconnue);
    // Un aller-retour plus vif qu'un regard se voit aussi.
    debrancher();
    rebrancher();
    EXPECT_TRUE(echoue());
    EXPECT_EQ(d2xx.fermer(), d2xx::reussi);
}

TEST_F(BibliothequeD2xx, CinquanteSessionsNeLaissentNiDescripteurNiFil) {
    const auto tour = [this] {
        return d2xx.ouvrirPourDmx() && d2xx.envoyer(255, 0) == 0 && d2xx.fermer() == 0;
    };
    ASSERT_TRUE(tour());
    const auto descripteurs = nombreDe("/proc/self/fd");
    const auto fils = nombreDe("/proc/self/task");
    for (int i = 0; i < 50; ++i) {
        ASSERT_TRUE(tour()) << i;
    }
    EXPECT_EQ(nombreDe("/proc/self/fd"), descripteurs);
    EXPECT_EQ(nombreDe("/proc/self/task"), fils);
}

TEST_F(BibliothequeD2xx, LaFermeturePendantUnEnvoiEtLaFinDuProcessusSontSures) {
    EXPECT_EXIT(
        {
            ASSERT_TRUE(d2xx.ouvrirPourDmx());
            std::thread([envoyeur = d2xx] {
                while (envoyeur.envoyer(255, 0) != 99) {
                }
            }).detach();
            attendre([] { return reception().trames > 20; });
            d2xx.fermer();
            d2xx.ouvrirPourDmx();
            std::exit(0);
        },
        testing::ExitedWithCode(0), "");
}

TEST_F(BibliothequeD2xx, LesAppelsDOuvertureSontNotesDansLOrdre) {
    const std::string appels = mac.reel("/etat/appels");
    ::setenv("LUMIVIA_APPELS_D2XX", appels.c_str(), 1);
    ASSERT_TRUE(d2xx.ouvrirPourDmx());
    EXPECT_EQ(d2xx.envoyer(255, 0), 0U);
    d2xx.fermer();
    EXPECT_EQ(mac.lire("/etat/appels"), "FT_Open 0 : 0\nFT_ResetDevice : 0\n"
                                        "FT_SetBaudRate 250000 : 0\n"
                                        "FT_SetDataCharacteristics 8 2 0 : 0\n"
                                        "FT_SetFlowControl 0 0 0 : 0\nFT_Purge 3 : 0\n"
                                        "FT_Close : 0\n");
}

TEST_F(BibliothequeD2xx, ChaqueVarianteManqueDeCeQueDitSonNom) {
    const std::array fonctions{
        "FT_Open",           "FT_ResetDevice", "FT_SetBaudRate", "FT_SetDataCharacteristics",
        "FT_SetFlowControl", "FT_Purge",       "FT_SetBreakOn",  "FT_SetBreakOff",
        "FT_Write",          "FT_Close"};
    for (const std::string manque : fonctions) {
        const Bibliotheque variante(VARIANTES "sans_" + manque + "/libftd2xx.dylib");
        ASSERT_TRUE(variante.chargee()) << manque;
        for (const char* fonction : fonctions) {
            EXPECT_EQ(variante.offre(fonction), manque != fonction) << manque;
        }
    }
    EXPECT_FALSE(Bibliotheque(VARIANTES "illisible/libftd2xx.dylib").chargee());

    Bibliotheque sansPoignee(VARIANTES "sans_poignee/libftd2xx.dylib");
    EXPECT_EQ(sansPoignee.ouvrir(), d2xx::reussi);
    EXPECT_EQ(sansPoignee.poignee, nullptr);

    Bibliotheque refuse(VARIANTES "reglages_refuses/libftd2xx.dylib");
    ASSERT_EQ(refuse.ouvrir(), d2xx::reussi);
    EXPECT_EQ(refuse.debit() & refuse.format() & refuse.flux(), d2xx::erreurES);
    EXPECT_EQ(refuse.envoyer(255, 0), 0U);
    refuse.fermer();
    EXPECT_EQ(reception().verdict, d2xx::Verdict::ligneMalReglee);
}
