// La session sur l'émetteur, avec la bibliothèque D2XX simulée chargée par le vrai chargeur.
#include "commun/journal.hpp"
#include "commun/mac.hpp"
#include "commun/ressources.hpp"
#include "dmx/test_dmx.hpp"
#include "mac_simule/d2xx/reception.hpp"
#include "mesures/releve/chiffres.hpp"

#include <fcntl.h>
#include <set>
#include <sys/file.h>

namespace {

using essai::compter;

const std::string kBibliotheque =
    "/Applications/Assistant Lumivia.app/Contents/Frameworks/libftd2xx.dylib";
const char* const kIntrouvable =
    "La bibliothèque de test est introuvable dans l'assistant. Contactez Voltaris.";
const char* const kIncomplete = "La bibliothèque de test est incomplète. Contactez Voltaris.";
const char* const kEmetteurFerme =
    "Impossible d'ouvrir l'émetteur. Fermez votre logiciel lumière (il peut occuper l'émetteur), "
    "débranchez et rebranchez le câble USB, puis réessayez.";

class Session : public ::testing::Test {
protected:
    void poser(const std::string& bibliotheque) const {
        mac.poser(kBibliotheque, essai::contenu(bibliotheque));
    }

    void poserVariante(const std::string& nom) const {
        poser(VARIANTES + nom + "/libftd2xx.dylib");
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

    // Ouvre la session et voit le projecteur s'allumer.
    void allumer() const {
        ASSERT_EQ(test->ouvrir(), std::nullopt);
        test->envoyer(TestDMX::Motif::plein);
        ASSERT_TRUE(attendreNiveau(255));
    }

    essai::Mac mac{"pret"};
    std::shared_ptr<TestDMX> test = TestDMX::creer();
};

class SessionComplete : public Session {
protected:
    SessionComplete() { poser(D2XX); }
};

// Une bibliothèque dont l'écriture ne revient pas tant qu'on la retient ; ses appels se lisent.
class EcritureRetenue : public Session {
protected:
    EcritureRetenue() {
        poserVariante("ecriture_retenue");
        ::setenv("LUMIVIA_APPELS_D2XX", mac.reel("/appels").c_str(), 1);
    }

    void retenir() const { mac.poserEtat("ecriture_retenue", ""); }

    void laisserRevenir() const { mac.retirer("/etat/ecriture_retenue"); }

    std::size_t dernier(const std::string& appel) const { return mac.lire("/appels").rfind(appel); }
};

class OuvertureFautive : public Session, public ::testing::WithParamInterface<const char*> {};

class FonctionAbsente : public Session, public ::testing::WithParamInterface<const char*> {};

} // namespace

TEST_F(Session, sansBibliothequeLeDitEtPeutReessayer) {
    EXPECT_EQ(test->ouvrir(), kIntrouvable);
    EXPECT_EQ(compter("D2XX introuvable : l'application n'a pas de dossier"), 1);
    mac.poser(kBibliotheque, "ceci n'est pas une bibliothèque");
    EXPECT_EQ(test->ouvrir(), kIntrouvable);
    // Le texte du chargeur ne montre que des chemins de Mac.
    EXPECT_EQ(compter("D2XX introuvable : " + kBibliotheque), 1);
    test->fermer();
    poser(D2XX);
    EXPECT_EQ(test->ouvrir(), std::nullopt);
}

TEST_P(FonctionAbsente, empecheLOuvertureOuNEnvoieRien) {
    const std::set<std::string> boucle{"FT_SetBreakOn", "FT_SetBreakOff", "FT_Write"};
    const bool ouvre = boucle.count(GetParam()) == 1;
    poserVariante(std::string("sans_") + GetParam());
    for (int fois = 0; fois < 2; ++fois) {
        ASSERT_EQ(test->ouvrir().value_or("ouvre"), ouvre ? "ouvre" : kIncomplete);
        if (ouvre) {
            test->envoyer(TestDMX::Motif::plein);
            test->envoyer(TestDMX::Motif::clignotant);
            test->fermer();
        }
    }
    EXPECT_EQ(reception().trames, 0U);
    EXPECT_EQ(compter("FT_Open"), ouvre ? 2 : 0);
}

INSTANTIATE_TEST_SUITE_P(Bibliotheque, FonctionAbsente,
                         ::testing::Values("FT_Open", "FT_ResetDevice", "FT_SetBaudRate",
                                           "FT_SetDataCharacteristics", "FT_SetFlowControl",
                                           "FT_Purge", "FT_SetBreakOn", "FT_SetBreakOff",
                                           "FT_Write"));

TEST_F(Session, sansFTCloseLaPoigneeEstOublieeToutDeMeme) {
    poserVariante("sans_FT_Close");
    ASSERT_EQ(test->ouvrir(), std::nullopt);
    test->fermer();
    static_cast<void>(test->ouvrir());
    EXPECT_EQ(compter("FT_Open : statut "), 2) << "fermée, la session s'ouvre à nouveau";
}

TEST_P(OuvertureFautive, estUnEchecQuiDitSonStatut) {
    poserVariante(GetParam());
    EXPECT_EQ(test->ouvrir(), kEmetteurFerme);
    EXPECT_EQ(compter("FT_Open : statut "), 1);
}

INSTANTIATE_TEST_SUITE_P(Session, OuvertureFautive,
                         ::testing::Values("sans_poignee", "poignee_malgre_refus"));

TEST_F(Session, desReglagesRefusesNEmpechentPasLEssaiMaisNEclairentRien) {
    poserVariante("reglages_refuses");
    EXPECT_EQ(test->ouvrir(), std::nullopt);
    test->envoyer(TestDMX::Motif::plein);
    EXPECT_TRUE(
        essai::attendre([&] { return reception().verdict == d2xx::Verdict::ligneMalReglee; }));
    test->fermer();
    EXPECT_EQ(reception().niveauMax + reception().correctes, 0U);
}

TEST_F(EcritureRetenue, revenueAvantLaPatienceFinitAvantLaFermeture) {
    const essai::Ressources avant;
    allumer();
    retenir();
    std::thread retour([this] {
        std::this_thread::sleep_for(std::chrono::milliseconds(400));
        laisserRevenir();
    });
    test->fermer();
    retour.join();
    ASSERT_TRUE(essai::attendre([&] { return essai::Ressources().fils == avant.fils; }));
    ASSERT_NE(dernier("FT_Close : 0"), std::string::npos);
    EXPECT_LT(dernier("FT_Write : "), dernier("FT_Close : 0"));
}

TEST_F(EcritureRetenue, abandonneeNeFermeRienEtNeToucheJamaisLaSessionSuivante) {
    const essai::Ressources avant;
    allumer();
    retenir();
    test->fermer();
    EXPECT_EQ(dernier("FT_Close"), std::string::npos) << "l'émetteur ne se ferme pas sous le fil";
    EXPECT_EQ(test->ouvrir(), kEmetteurFerme) << "la poignée perdue tient l'émetteur";
    const std::string fiche = mac.lire("/etat/usb/emetteur-1");
    mac.retirer("/etat/usb/emetteur-1");
    mac.poser("/etat/usb/emetteur-1", fiche);
    ASSERT_TRUE(essai::attendre([&] { return test->ouvrir() == std::nullopt; }))
        << "rebranché, il s'ouvre, l'écriture encore retenue";
    laisserRevenir();
    allumer();
    test->fermer();
    EXPECT_EQ(reception().niveauMax, 0);
    EXPECT_TRUE(essai::attendre([&] { return essai::Ressources().fils == avant.fils; }));
    const std::string appels = mac.lire("/appels");
    const std::string refusee = "FT_Write : 1\n"; // 1 : la poignée de l'ancienne session
    const std::size_t revenue = appels.find(refusee);
    ASSERT_NE(revenue, std::string::npos);
    EXPECT_EQ(appels.find(refusee, revenue + 1), std::string::npos) << "rien après son retour";
    EXPECT_EQ(compter(""), compter("FT_Open")) << "abandonner ne s'écrit pas au journal";
}

TEST_F(SessionComplete, regleLaLignePourLeDmx512EtNeLeFaitQuUneFois) {
    ::setenv("LUMIVIA_APPELS_D2XX", mac.reel("/appels").c_str(), 1);
    for (int fois = 0; fois < 2; ++fois) {
        ASSERT_EQ(test->ouvrir(), std::nullopt);
        EXPECT_EQ(mac.lire("/appels"),
                  "FT_Open 0 : 0\nFT_ResetDevice : 0\nFT_SetBaudRate 250000 : 0\n"
                  "FT_SetDataCharacteristics 8 2 0 : 0\nFT_SetFlowControl 0 0 0 : 0\n"
                  "FT_Purge 3 : 0\n");
    }
    EXPECT_EQ(compter("FT_Open : statut 0"), 1);
}

TEST_F(SessionComplete, diseLeStatutDUnEmetteurAbsentOuOccupe) {
    const std::string fiche = mac.lire("/etat/usb/emetteur-1");
    mac.retirer("/etat/usb/emetteur-1");
    EXPECT_EQ(test->ouvrir(), kEmetteurFerme);
    EXPECT_EQ(compter("FT_Open : statut 2"), 1);
    mac.poser("/etat/usb/emetteur-1", fiche);
    // Un autre assistant le tient par le verrou de ce fichier, jusqu'à sa fin.
    const int autre = ::open(mac.reel("/etat/reception").c_str(), O_RDWR | O_CREAT, 0644);
    EXPECT_EQ(::flock(autre, LOCK_EX | LOCK_NB), 0);
    EXPECT_EQ(test->ouvrir(), kEmetteurFerme);
    EXPECT_EQ(compter("FT_Open : statut 3"), 1);
    ::close(autre);
    EXPECT_EQ(test->ouvrir(), std::nullopt);
}

TEST_F(SessionComplete, eclaireSuitLeMotifPuisEteintEtToutesLesTramesSontJustes) {
    ::setenv("LUMIVIA_RELEVE_DMX", mac.reel("/releve").c_str(), 1);
    for (const char* puce : {"immediat", "realiste"}) {
        mac.poserEtat("puce_dmx", puce);
        allumer();
        for (const auto& [motif, niveau] : {std::pair{TestDMX::Motif::noir, 0},
                                            {TestDMX::Motif::clignotant, 255},
                                            {TestDMX::Motif::clignotant, 0},
                                            {TestDMX::Motif::plein, 255}}) {
            test->envoyer(motif);
            EXPECT_TRUE(attendreNiveau(niveau));
        }
        EXPECT_EQ(releve::lire(mac.lire("/releve")).ligneFautive, 0U)
            << "la place est prise d'avance";
        test->fermer();
        EXPECT_EQ(reception().niveauMax, 0) << "fermer laisse le projecteur éteint";
        EXPECT_EQ(reception().correctes, reception().trames) << puce;
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
    allumer();
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
    allumer();
    test->fermer();
}

TEST_F(SessionComplete, seDetruitPendantQueSonFilTravaille) {
    allumer();
    const std::weak_ptr<TestDMX> faible = test;
    test.reset();
    EXPECT_FALSE(faible.expired()) << "le fil en route garde la session";
    faible.lock()->fermer();
    EXPECT_TRUE(essai::attendre([&] { return faible.expired(); }));
}

TEST_F(SessionComplete, cinquanteSessionsNeLaissentRien) {
    allumer();
    test->fermer();
    const essai::Ressources avant;
    for (int i = 0; i < 50; ++i) {
        ASSERT_EQ(test->ouvrir(), std::nullopt);
        test->envoyer(TestDMX::Motif::clignotant);
        test->fermer();
    }
    EXPECT_TRUE(essai::Ressources().memesTenues(avant));
}
