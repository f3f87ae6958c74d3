// La session sur l'émetteur, avec la bibliothèque D2XX simulée chargée par le vrai chargeur.
#include "commun/journal.hpp"
#include "commun/mac.hpp"
#include "commun/ressources.hpp"
#include "dmx/test_dmx.hpp"
#include "mac_simule/d2xx/depot.hpp"
#include "mesures/releve/chiffres.hpp"

#include <fcntl.h>
#include <sys/file.h>

namespace {

using essai::compter;

class Session : public ::testing::Test {
protected:
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
    SessionComplete() { mac.poserBibliotheque(D2XX); }

    // Des sessions de suite, après une première, d'un quart de seconde chacune.
    void repeter(int fois) {
        const essai::Ressources avant;
        for (int i = 0; i < fois; ++i) {
            allumer();
            test->fermer();
        }
        EXPECT_TRUE(essai::Ressources().memesTenues(avant));
    }
};

// Une bibliothèque dont un appel ne revient pas tant qu'on le retient ; ses appels se lisent.
class AppelRetenu : public Session, public ::testing::WithParamInterface<std::string> {
protected:
    AppelRetenu() {
        mac.poserVariante("appel_retenu");
        ::setenv("LUMIVIA_APPELS_D2XX", mac.reel("/appels").c_str(), 1);
        allumer(); // les fils que la première session crée pour toujours sont là
        test->fermer();
        mac.retirer("/appels");
    }

    void retenir() const { mac.poserEtat("appel_retenu", GetParam()); }

    void laisserRevenir() const { mac.retirer("/etat/appel_retenu"); }

    std::size_t dernier(const std::string& appel) const { return mac.lire("/appels").rfind(appel); }
};

class Defaillante : public Session, public ::testing::WithParamInterface<std::string> {};

} // namespace

TEST_F(Session, sansBibliothequeLeDit) {
    EXPECT_NE(test->ouvrir(), std::nullopt);
    EXPECT_EQ(compter("D2XX introuvable : l'application n'a pas de dossier"), 1);
    mac.poser(mac.bibliotheque, "ceci n'est pas une bibliothèque");
    EXPECT_NE(test->ouvrir(), std::nullopt);
    // Le texte du chargeur ne montre que des chemins de Mac.
    EXPECT_EQ(compter("D2XX introuvable : " + mac.bibliotheque), 1);
    test->fermer();
    mac.poserBibliotheque(D2XX);
    EXPECT_EQ(test->ouvrir(), std::nullopt);
}

TEST_P(Defaillante, nEnvoieRien) {
    const auto nomme = [](const char* mot) { return GetParam().find(mot) != std::string::npos; };
    const bool muette = nomme("Break") || nomme("Write");
    const bool refusee = nomme("poignee");
    mac.poserVariante(GetParam());
    for (int fois = 0; fois < 2; ++fois) {
        if (muette) {
            ASSERT_EQ(test->ouvrir(), std::nullopt);
            test->envoyer(TestDMX::Motif::plein);
            test->envoyer(TestDMX::Motif::clignotant);
            test->fermer();
        } else {
            EXPECT_EQ(test->ouvrir() ==
                          "La bibliothèque de test est incomplète. Contactez Voltaris.",
                      !refusee);
        }
    }
    EXPECT_EQ(reception().trames, 0U);
    EXPECT_EQ(compter("FT_Open : statut "), muette || refusee ? 2 : 0);
}

INSTANTIATE_TEST_SUITE_P(Bibliotheque, Defaillante,
                         ::testing::Values("sans_FT_Open", "sans_FT_ResetDevice",
                                           "sans_FT_SetBaudRate", "sans_FT_SetDataCharacteristics",
                                           "sans_FT_SetFlowControl", "sans_FT_Purge",
                                           "sans_FT_SetBreakOn", "sans_FT_SetBreakOff",
                                           "sans_FT_Write", "sans_poignee",
                                           "poignee_malgre_refus"));

TEST_F(Session, sansFTCloseLaPoigneeEstOublieeToutDeMeme) {
    mac.poserVariante("sans_FT_Close");
    ASSERT_EQ(test->ouvrir(), std::nullopt);
    test->fermer();
    static_cast<void>(test->ouvrir());
    EXPECT_EQ(compter("FT_Open : statut "), 2) << "fermée, la session s'ouvre à nouveau";
}

TEST_F(Session, desReglagesRefusesNEmpechentPasLEssaiMaisNEclairentRien) {
    mac.poserVariante("reglages_refuses");
    EXPECT_EQ(test->ouvrir(), std::nullopt);
    test->envoyer(TestDMX::Motif::plein);
    EXPECT_TRUE(
        essai::attendre([&] { return reception().verdict == d2xx::Verdict::ligneMalReglee; }));
    test->fermer();
    EXPECT_EQ(reception().niveauMax + reception().correctes, 0U);
}

TEST_P(AppelRetenu, revenuAvantLaPatienceFinitAvantLaFermeture) {
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
    EXPECT_LT(dernier(GetParam()), dernier("FT_Close : 0"));
}

TEST_P(AppelRetenu, abandonneNeToucheJamaisLaSessionSuivante) {
    const essai::Ressources avant;
    allumer();
    retenir();
    test->fermer();
    EXPECT_EQ(dernier("FT_Close"), std::string::npos) << "l'émetteur ne se ferme pas sous le fil";
    EXPECT_NE(test->ouvrir(), std::nullopt) << "la poignée perdue tient l'émetteur";
    const std::string fiche = mac.lire("/etat/usb/emetteur-1");
    mac.retirer("/etat/usb/emetteur-1");
    mac.poser("/etat/usb/emetteur-1", fiche);
    ASSERT_TRUE(essai::attendre([&] { return test->ouvrir() == std::nullopt; }))
        << "rebranché, il s'ouvre, l'appel encore retenu";
    laisserRevenir();
    allumer();
    test->fermer();
    EXPECT_EQ(reception().niveauMax, 0);
    EXPECT_TRUE(essai::attendre([&] { return essai::Ressources().fils == avant.fils; }));
    const std::string appels = mac.lire("/appels");
    const std::string refuse = " : 1\n"; // la poignée de l'ancienne session
    EXPECT_EQ(appels.find(GetParam() + refuse) + GetParam().size(), appels.find(refuse));
    EXPECT_EQ(appels.find(refuse), appels.rfind(refuse)) << "rien après son retour";
    EXPECT_EQ(compter(""), compter("FT_Open")) << "abandonner ne s'écrit pas au journal";
}

INSTANTIATE_TEST_SUITE_P(Bibliotheque, AppelRetenu,
                         ::testing::Values("FT_SetBreakOn", "FT_SetBreakOff", "FT_Write"));

TEST_F(SessionComplete, regleLaLignePourLeDmx512UneSeuleFois) {
    ::setenv("LUMIVIA_APPELS_D2XX", mac.reel("/appels").c_str(), 1);
    for (int fois = 0; fois < 2; ++fois) {
        ASSERT_EQ(test->ouvrir(), std::nullopt);
        EXPECT_EQ(mac.lire("/appels"),
                  "FT_Open 0 : 0\nFT_ResetDevice : 0\nFT_SetBaudRate 250000 : 0\n"
                  "FT_SetDataCharacteristics 8 2 0 : 0\nFT_SetFlowControl 0 0 0 : 0\n"
                  "FT_Purge 3 : 0\n");
    }
    EXPECT_EQ(compter("FT_Open : statut 0"), 1);
    test->fermer();
    test->fermer();
    const std::string appels = mac.lire("/appels");
    EXPECT_EQ(appels.substr(appels.find("FT_Purge")), "FT_Purge 3 : 0\nFT_Close : 0\n");
}

TEST_F(SessionComplete, diseLeStatutDUnEmetteurAbsentOuOccupe) {
    mac.retirer("/etat/usb/emetteur-1");
    EXPECT_NE(test->ouvrir(), std::nullopt);
    EXPECT_EQ(compter("FT_Open : statut 2"), 1);
    mac.poserEtat("usb/emetteur-1", "fabricant 403\nproduit 6015\n"); // en hexadécimal
    // Un autre assistant le tient par le verrou de ce fichier, jusqu'à sa fin.
    const int autre = ::open(mac.reel("/etat/reception").c_str(), O_RDWR | O_CREAT, 0644);
    EXPECT_EQ(::flock(autre, LOCK_EX | LOCK_NB), 0);
    EXPECT_NE(test->ouvrir(), std::nullopt);
    EXPECT_EQ(compter("FT_Open : statut 3"), 1);
    ::close(autre);
    EXPECT_EQ(test->ouvrir(), std::nullopt);
}

TEST_F(SessionComplete, chaqueMotifEstUneSuiteDeTramesJustes) {
    ::setenv("LUMIVIA_RELEVE_DMX", mac.reel("/releve").c_str(), 1);
    ASSERT_EQ(test->ouvrir(), std::nullopt);
    test->envoyer(TestDMX::Motif::clignotant);
    EXPECT_TRUE(attendreNiveau(0));
    test->fermer();
    std::istringstream debut(mac.lire("/releve"));
    int allumees = 0;
    for (std::string ligne; std::getline(debut, ligne) && ligne.find(" 0000") == ligne.npos;) {
        allumees += ligne.find(" write 513 00ff") == ligne.npos ? 0 : 1;
    }
    EXPECT_EQ(allumees, 15);
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

TEST_F(SessionComplete, seDetruitPendantQueSonFilTravaille) {
    allumer();
    const std::weak_ptr<TestDMX> faible = test;
    test.reset();
    EXPECT_FALSE(faible.expired()) << "le fil en route garde la session";
    faible.lock()->fermer();
    EXPECT_TRUE(essai::attendre([&] { return faible.expired(); }));
}

TEST_F(SessionComplete, cinquanteSessionsApresUnDebranchementNeLaissentRien) {
    ::setenv("LUMIVIA_RELEVE_DMX", mac.reel("/releve").c_str(), 1);
    allumer();
    const std::string fiche = mac.lire("/etat/usb/emetteur-1");
    mac.retirer("/etat/usb/emetteur-1");
    ASSERT_TRUE(essai::attendre([&] {
        const std::string releve = mac.lire("/releve");
        return releve.find("write_fail") != releve.rfind("write_fail");
    })) << "d'autres trames suivent la première refusée";
    const std::uint64_t recues = reception().trames;
    mac.poser("/etat/usb/emetteur-1", fiche);
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    EXPECT_EQ(reception().trames, recues) << "l'ancienne poignée reste perdue";
    test->fermer();
    allumer();
    test->fermer();
    repeter(50);
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
}

TEST_F(SessionComplete, DISABLED_milleSessionsNeLaissentRien) {
    allumer();
    test->fermer();
    repeter(1000);
}
