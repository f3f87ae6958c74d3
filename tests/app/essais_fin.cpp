// Les façons de finir, avec la vraie boucle : le processus de l'essai finit comme l'assistant.
#include "app/conduite.hpp"

#include "plateforme/application.hpp"

using essai::Conduite;

namespace {

// Fait tourner l'application jusqu'à sa fin ; `geste` part quand la page voulue est là.
void vivre(Conduite& c, const std::string& page, const std::function<void()>& geste) {
    c.demarrer();
    auto* guet = new QTimer(qApp);
    QObject::connect(guet, &QTimer::timeout, [guet, page, geste] {
        if (robot::titre() == page) {
            guet->stop();
            geste();
        } else if (QPushButton* suite = robot::bouton("")) {
            suite->click();
        }
    });
    guet->start(5);
    plateforme::definirDelegue(
        {[] {}, [] { return Delegue::applicationShouldTerminateAfterLastWindowClosed(); }});
    plateforme::executerApplication();
}

} // namespace

TEST(Fin, fermerPendantUneAnalyse) {
    Conduite c;
    c.mac.poserOutil("/usr/sbin/sysctl", "sleep 2");
    vivre(c, "Analyse en cours…", [&] { c.fenetre().close(); });
    EXPECT_EQ(essai::compter("Diagnostic"), 0);
}

TEST(Fin, commandeQPendantUneAnalyse) {
    Conduite c;
    c.mac.poserOutil("/usr/sbin/sysctl", "sleep 0.3");
    vivre(c, "Analyse en cours…", [&] { c.touche(Qt::Key_Q, Qt::ControlModifier); });
    EXPECT_NE(robot::fenetre(), nullptr) << "quitter ne ferme pas la fenêtre";
}

TEST(Fin, fermerPendantLEnvoiEteintDAbord) {
    Conduite c;
    ::setenv("LUMIVIA_RELEVE_DMX", c.mac.reel("/releve").c_str(), 1);
    vivre(c, "Tester avec votre projecteur", [&] {
        c.bouton("Allumer").click();
        QTimer::singleShot(300, [&] { c.fenetre().close(); });
    });
    const auto evenements = QByteArray::fromStdString(c.mac.lire("/releve"));
    const qsizetype allumee = evenements.lastIndexOf(" write 513 00ff");
    ASSERT_GE(allumee, 0);
    const QByteArray fin = evenements.mid(allumee);
    EXPECT_GE(fin.count(" write 513 0000"), 3) << "le noir part environ 150 ms avant la fermeture";
    EXPECT_GT(fin.indexOf(" close "), fin.lastIndexOf(" write 513 "));
}

TEST(Fin, commandeQPendantUneAlerteLaisseLeFilDesTramesFinirAvecLeProcessus) {
    Conduite c;
    vivre(c, "Tester avec votre projecteur", [&] {
        c.bouton("Allumer").click();
        QTimer::singleShot(200, [] { Conduite::touche(Qt::Key_Q, Qt::ControlModifier); });
        c.bouton("Copier le rapport pour le support").click();
    });
    EXPECT_EQ(essai::compter("Test DMX : plein"), 1);
    EXPECT_EQ(robot::titre(), "Tester avec votre projecteur");
}

TEST(Fin, fermerQuandLEcritureNeRevientPas) {
    Conduite c;
    c.mac.poserVariante("appel_retenu");
    vivre(c, "Tester avec votre projecteur", [&] {
        c.bouton("Allumer").click();
        c.mac.poserEtat("appel_retenu", "FT_Write");
        QTimer::singleShot(200, [&] { c.fenetre().close(); });
    });
    EXPECT_EQ(robot::fenetre(), nullptr);
}
