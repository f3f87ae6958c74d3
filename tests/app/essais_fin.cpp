// Les façons de finir, avec la vraie boucle : le processus de l'essai finit comme l'assistant.
#include "app/conduite.hpp"

#include "plateforme/application.hpp"

using essai::Conduite;

namespace {

// Fait tourner l'application jusqu'à sa fin ; `geste` part quand la page voulue est là.
void vivre(Conduite& c, const std::string& page, const std::function<void()>& geste) {
    plateforme::definirDelegue(
        {[&c] { c.demarrer(); },
         [] { return Delegue::applicationShouldTerminateAfterLastWindowClosed(); }});
    auto* guet = new QTimer(&plateforme::applicationQt());
    QObject::connect(guet, &QTimer::timeout, [&c, guet, page, geste] {
        if (!c.ouverte()) {
            return;
        }
        if (c.titre() == page) {
            guet->stop();
            geste();
        } else if (c.titre() == "Bienvenue") {
            c.bouton("Analyser mon Mac")->click();
        } else if (c.titre() == "Résultat de l'analyse") {
            c.bouton("Continuer")->click();
        }
    });
    guet->start(5);
    plateforme::executerApplication();
}

} // namespace

TEST(Fin, fermerPendantUneAnalyse) {
    Conduite c;
    c.mac.poserOutil("/usr/sbin/sysctl", "sleep 2");
    vivre(c, "Analyse en cours…", [&] { c.fenetre().close(); });
    EXPECT_EQ(c.compter("Diagnostic"), 0);
}

TEST(Fin, commandeQPendantUneAnalyse) {
    Conduite c;
    c.mac.poserOutil("/usr/sbin/sysctl", "sleep 0.3");
    vivre(c, "Analyse en cours…", [&] {
        QApplication::setActiveWindow(&c.fenetre());
        c.touche(Qt::Key_Q, Qt::ControlModifier);
    });
    EXPECT_TRUE(c.fenetre().isVisible()) << "quitter ne ferme pas la fenêtre";
}

TEST(Fin, commandeQPendantLEnvoiLaisseLeFilFinirAvecLeProcessus) {
    Conduite c;
    vivre(c, "Tester avec votre projecteur", [&] {
        c.bouton("Allumer")->click();
        QTimer::singleShot(200, [] { plateforme::terminerApplication(); });
    });
    EXPECT_EQ(c.compter("Test DMX : plein"), 1);
}

TEST(Fin, fermerPendantLEnvoiEteintDAbord) {
    Conduite c;
    const std::string releve = c.mac.reel("/releve").string();
    ::setenv("LUMIVIA_RELEVE_DMX", releve.c_str(), 1);
    vivre(c, "Tester avec votre projecteur", [&] {
        c.bouton("Allumer")->click();
        QTimer::singleShot(300, [&] { c.fenetre().close(); });
    });
    std::istringstream lignes(c.mac.lire("/releve"));
    std::string derniere;
    bool allume = false;
    int noires = 0;
    for (std::string ligne; std::getline(lignes, ligne);) {
        if (ligne.find(" write 513 00ff") != std::string::npos) {
            allume = true;
            noires = 0;
        }
        noires += ligne.find(" write 513 0000") != std::string::npos ? 1 : 0;
        derniere = ligne.find(" close ") != std::string::npos ? "close" : derniere;
    }
    EXPECT_TRUE(allume);
    EXPECT_GE(noires, 3) << "le noir part environ 150 ms avant la fermeture";
    EXPECT_EQ(derniere, "close");
}
