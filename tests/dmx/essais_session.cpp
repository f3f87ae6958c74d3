// La session sur l'émetteur, avec la bibliothèque D2XX simulée chargée par le vrai chargeur.
#include "commun/mac.hpp"
#include "commun/ressources.hpp"
#include "dmx/test_dmx.hpp"
#include "mac_simule/d2xx/reception.hpp"
#include "mesures/releve/chiffres.hpp"
#include "support/journal.hpp"

#include <fcntl.h>
#include <sys/file.h>

namespace {

namespace fs = std::filesystem;

const char* const kFrameworks = "/Applications/Assistant Lumivia.app/Contents/Frameworks";
const char* const kIntrouvable =
    "La bibliothèque de test est introuvable dans l'assistant. Contactez Voltaris.";
const char* const kIncomplete = "La bibliothèque de test est incomplète. Contactez Voltaris.";
const char* const kEmetteurFerme =
    "Impossible d'ouvrir l'émetteur. Fermez votre logiciel lumière (il peut occuper l'émetteur), "
    "débranchez et rebranchez le câble USB, puis réessayez.";

int compter(const std::string& texte) {
    int nombre = 0;
    for (const std::string& ligne : Journal::shared().lignes()) {
        nombre += ligne.find("] " + texte) != std::string::npos ? 1 : 0;
    }
    return nombre;
}

class Session : public ::testing::Test {
protected:
    void poser(const std::string& bibliotheque) const {
        fs::create_directories(mac.reel(kFrameworks));
        fs::copy_file(bibliotheque, mac.reel(std::string(kFrameworks) + "/libftd2xx.dylib"),
                      fs::copy_options::overwrite_existing);
    }

    void poserVariante(const std::string& nom) const {
        poser(std::string(VARIANTES) + nom + "/libftd2xx.dylib");
    }

    d2xx::Reception reception() const {
        return d2xx::lireReception(mac.reel("").string()).value_or(d2xx::Reception{});
    }

    bool attendreNiveau(int niveau) const {
        return essai::attendre([&] {
            const d2xx::Reception r = reception();
            return r.trames > 0 && r.niveauMin == niveau && r.niveauMax == niveau;
        });
    }

    std::string appels() const { return mac.lire("/appels"); }

    essai::Mac mac{"pret"};
    std::shared_ptr<TestDMX> test = TestDMX::creer();
};

class SessionComplete : public Session {
protected:
    SessionComplete() {
        poser(D2XX);
        ::setenv("LUMIVIA_APPELS_D2XX", mac.reel("/appels").c_str(), 1);
    }
};

// La fonction qui manque, et ce que répond l'ouverture.
class FonctionAbsente
    : public Session,
      public ::testing::WithParamInterface<std::tuple<std::string, std::optional<std::string>>> {};

} // namespace

TEST_F(Session, sansBibliothequeLeDitEtPeutReessayer) {
    EXPECT_EQ(test->ouvrir(), kIntrouvable);
    EXPECT_EQ(compter("D2XX introuvable : "), 1);
    fs::create_directories(mac.reel(kFrameworks));
    EXPECT_EQ(test->ouvrir(), kIntrouvable);
    // Le texte du chargeur ne montre que des chemins de Mac.
    EXPECT_EQ(compter(std::string("D2XX introuvable : ") + kFrameworks + "/libftd2xx.dylib"), 1);
    mac.poser(std::string(kFrameworks) + "/libftd2xx.dylib", "ceci n'est pas une bibliothèque");
    EXPECT_EQ(test->ouvrir(), kIntrouvable);
    test->fermer();
    mac.retirer(std::string(kFrameworks) + "/libftd2xx.dylib");
    poser(D2XX);
    EXPECT_EQ(test->ouvrir(), std::nullopt);
}

TEST_P(FonctionAbsente, empecheLOuvertureOuNEnvoieRien) {
    const auto& [nom, ouverture] = GetParam();
    poserVariante("sans_" + nom);
    for (int fois = 0; fois < 2; ++fois) {
        ASSERT_EQ(test->ouvrir(), ouverture);
        if (!ouverture) {
            test->envoyer(TestDMX::Motif::plein);
            test->envoyer(TestDMX::Motif::clignotant);
            test->fermer();
        }
    }
    EXPECT_EQ(reception().trames, 0U);
    EXPECT_EQ(compter("FT_Open"), ouverture ? 0 : 2);
}

INSTANTIATE_TEST_SUITE_P(DeLOuverture, FonctionAbsente,
                         ::testing::Combine(::testing::Values("FT_Open", "FT_ResetDevice",
                                                              "FT_SetBaudRate",
                                                              "FT_SetDataCharacteristics",
                                                              "FT_SetFlowControl", "FT_Purge"),
                                            ::testing::Values(kIncomplete)));
INSTANTIATE_TEST_SUITE_P(DeLaBoucle, FonctionAbsente,
                         ::testing::Combine(::testing::Values("FT_SetBreakOn", "FT_SetBreakOff",
                                                              "FT_Write"),
                                            ::testing::Values(std::nullopt)));

TEST_F(Session, sansFTCloseLaPoigneeEstOublieeToutDeMeme) {
    poserVariante("sans_FT_Close");
    ASSERT_EQ(test->ouvrir(), std::nullopt);
    test->fermer();
    static_cast<void>(test->ouvrir());
    EXPECT_EQ(compter("FT_Open : statut "), 2) << "fermée, la session s'ouvre à nouveau";
}

TEST_F(Session, unStatutNulSansPoigneeEstUnEchec) {
    poserVariante("sans_poignee");
    EXPECT_EQ(test->ouvrir(), kEmetteurFerme);
    EXPECT_EQ(compter("FT_Open : statut 0"), 1);
}

TEST_F(Session, desReglagesRefusesNEmpechentPasLEssaiMaisNEclairentRien) {
    poserVariante("reglages_refuses");
    EXPECT_EQ(test->ouvrir(), std::nullopt);
    test->envoyer(TestDMX::Motif::plein);
    EXPECT_TRUE(
        essai::attendre([&] { return reception().verdict == d2xx::Verdict::ligneMalReglee; }));
    test->fermer();
    EXPECT_EQ(reception().niveauMax + reception().correctes, 0U);
}

TEST_F(SessionComplete, regleLaLignePourLeDmx512EtNeLeFaitQuUneFois) {
    ASSERT_EQ(test->ouvrir(), std::nullopt);
    const std::string premiers = appels();
    std::size_t ou = 0;
    for (const char* appel :
         {"FT_Open 0", "FT_ResetDevice", "FT_SetBaudRate 250000", "FT_SetDataCharacteristics 8 2 0",
          "FT_SetFlowControl 0 0 0", "FT_Purge 3"}) {
        ou = premiers.find(appel, ou);
        ASSERT_NE(ou, std::string::npos) << appel << " dans :\n" << premiers;
    }
    EXPECT_EQ(test->ouvrir(), std::nullopt);
    EXPECT_EQ(appels(), premiers) << "une session ouverte ne touche plus l'émetteur";
    EXPECT_EQ(compter("FT_Open : statut 0"), 1);
    test->fermer();
    test->fermer();
    ASSERT_EQ(test->ouvrir(), std::nullopt);
    test->fermer();
}

TEST_F(SessionComplete, diseLeStatutDUnEmetteurAbsentOuOccupe) {
    mac.retirer("/etat/usb/emetteur-1");
    EXPECT_EQ(test->ouvrir(), kEmetteurFerme);
    EXPECT_EQ(compter("FT_Open : statut 2"), 1);
    mac.poser("/etat/usb/emetteur-1", "fabricant 0x0403\nproduit 0x6001\nserie Z\n");
    mac.poserEtat("emetteur_occupe", "");
    EXPECT_EQ(test->ouvrir(), kEmetteurFerme);
    EXPECT_EQ(compter("FT_Open : statut 3"), 1);
    mac.retirer("/etat/emetteur_occupe");
    // Un autre assistant le tient par le verrou de ce fichier, jusqu'à sa fin.
    const int autre = ::open(mac.reel("/etat/reception").c_str(), O_RDWR | O_CREAT, 0644);
    EXPECT_EQ(::flock(autre, LOCK_EX | LOCK_NB), 0);
    EXPECT_EQ(test->ouvrir(), kEmetteurFerme);
    ::close(autre);
    EXPECT_EQ(test->ouvrir(), std::nullopt);
}

TEST_F(SessionComplete, eclaireSuitLeMotifPuisEteintEtToutesLesTramesSontJustes) {
    for (const char* puce : {"immediat", "realiste"}) {
        mac.poserEtat("puce_dmx", puce);
        ASSERT_EQ(test->ouvrir(), std::nullopt);
        test->envoyer(TestDMX::Motif::plein);
        EXPECT_TRUE(attendreNiveau(255));
        test->envoyer(TestDMX::Motif::noir);
        EXPECT_TRUE(attendreNiveau(0));
        test->envoyer(TestDMX::Motif::clignotant);
        EXPECT_TRUE(attendreNiveau(255));
        EXPECT_TRUE(attendreNiveau(0));
        test->envoyer(TestDMX::Motif::plein);
        EXPECT_TRUE(attendreNiveau(255));
        test->fermer();
        EXPECT_EQ(reception().niveauMax, 0) << "fermer laisse le projecteur éteint";
        EXPECT_EQ(reception().correctes, reception().trames) << puce;
    }
}

TEST_F(SessionComplete, laisseUnReleveQueLeLecteurComprend) {
    ::setenv("LUMIVIA_RELEVE_DMX", mac.reel("/releve").c_str(), 1);
    for (int fois = 0; fois < 2; ++fois) {
        ASSERT_EQ(test->ouvrir(), std::nullopt);
        test->envoyer(TestDMX::Motif::plein);
        EXPECT_TRUE(attendreNiveau(255));
        EXPECT_EQ(releve::lire(mac.lire("/releve")).ligneFautive, 0U)
            << "la place est prise d'avance";
        test->fermer();
    }
    const std::string texte = mac.lire("/releve");
    EXPECT_EQ(texte.find('\0'), std::string::npos);
    EXPECT_NE(texte.find(" write 513 00ffffffffffffff\n"), std::string::npos);
    const releve::Lecture lecture = releve::lire(texte);
    EXPECT_EQ(lecture.ligneFautive, 0U);
    const releve::Chiffres chiffres = releve::calculer(lecture.evenements);
    EXPECT_EQ(chiffres.coupees + chiffres.echecs, 0U);
}

TEST_F(SessionComplete, debrancherPendantLEnvoiNArretePasLaBoucle) {
    ASSERT_EQ(test->ouvrir(), std::nullopt);
    test->envoyer(TestDMX::Motif::plein);
    ASSERT_TRUE(attendreNiveau(255));
    const std::string fiche = mac.lire("/etat/usb/emetteur-1");
    mac.retirer("/etat/usb/emetteur-1");
    std::uint64_t avant = 0;
    ASSERT_TRUE(essai::attendre([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        return std::exchange(avant, reception().trames) == reception().trames;
    })) << "plus aucune trame n'arrive";
    mac.poser("/etat/usb/emetteur-1", fiche);
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    EXPECT_EQ(reception().trames, avant) << "l'ancienne poignée reste perdue";
    test->fermer();
    ASSERT_EQ(test->ouvrir(), std::nullopt);
    test->envoyer(TestDMX::Motif::plein);
    EXPECT_TRUE(attendreNiveau(255));
    test->fermer();
}

TEST_F(SessionComplete, dixMilleChangementsDeMotifNePerdentRien) {
    ASSERT_EQ(test->ouvrir(), std::nullopt);
    for (int i = 0; i < 10'000; ++i) {
        test->envoyer(i % 2 == 0 ? TestDMX::Motif::clignotant : TestDMX::Motif::noir);
        std::this_thread::sleep_for(std::chrono::microseconds(20));
    }
    test->envoyer(TestDMX::Motif::plein);
    EXPECT_TRUE(attendreNiveau(255));
    test->fermer();
    EXPECT_EQ(reception().correctes, reception().trames);
    EXPECT_EQ(compter("FT_Open"), 1);
}

TEST_F(SessionComplete, seDetruitPendantQueSonFilTravaille) {
    ASSERT_EQ(test->ouvrir(), std::nullopt);
    test->envoyer(TestDMX::Motif::plein);
    ASSERT_TRUE(attendreNiveau(255));
    const std::weak_ptr<TestDMX> faible = test;
    test.reset();
    EXPECT_FALSE(faible.expired()) << "le fil en route garde la session";
    faible.lock()->fermer();
    EXPECT_TRUE(essai::attendre([&] { return faible.expired(); }));
}

// Un cycle prend un quart de seconde, celui que fermer laisse au noir : plusieurs sessions à la
// suite dans chacun des essais.
class Cycles : public SessionComplete {
protected:
    void tourner(int fois) {
        const auto cycle = [this] {
            ASSERT_EQ(test->ouvrir(), std::nullopt);
            test->envoyer(TestDMX::Motif::clignotant);
            test->fermer();
        };
        cycle();
        const essai::Ressources avant;
        for (int i = 0; i < fois; ++i) {
            cycle();
        }
        EXPECT_TRUE(essai::Ressources().memesTenues(avant));
    }
};

TEST_F(Cycles, cinquanteSessionsNeLaissentRien) {
    tourner(50);
}

TEST_F(Cycles, DISABLED_milleSessionsNeLaissentRien) {
    tourner(1000);
}
