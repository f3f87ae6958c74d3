// Le banc : ce qu'il dit et ce que ses interrupteurs changent.
#include "mac_simule/banc/banc.hpp"

#include "commun/mac.hpp"
#include "mac_simule/banc/phrases.hpp"

#include <QtGui/QAccessible>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>

using namespace banc;

namespace {

constexpr d2xx::Nanosecondes kSeconde = 1'000'000'000;

void cliquer(const Banc& fenetre, const QString& titre) {
    const auto boutons = fenetre.findChildren<QAbstractButton*>();
    const auto voulu = std::ranges::find(boutons, titre, &QAbstractButton::text);
    ASSERT_NE(voulu, boutons.end()) << "aucun interrupteur « " << titre.toStdString() << " »";
    (*voulu)->click();
}

} // namespace

TEST(Banc, leProjecteurDitCeQuIlRecoit) {
    d2xx::Reception recue{.milliTramesParSeconde = 32'800};
    recue.trames = recue.correctes = 1234;
    recue.derniereTrame = recue.derniereComprise = kSeconde;
    recue.niveauMin = recue.niveauMax = 255;
    const Constat plein = constater(recue, kSeconde * 2);
    EXPECT_EQ(plein.signal, Constat::Signal::correct);
    EXPECT_EQ(plein.niveau, 1);
    EXPECT_EQ(plein.lumiere, "Plein feu, 100 %");
    EXPECT_TRUE(plein.reception.startsWith("32,8 trames par seconde, 1"));

    const Constat perdu = constater(recue, kSeconde * 2 + 1);
    EXPECT_EQ(perdu.signal, Constat::Signal::absent);
    EXPECT_EQ(perdu.niveau, 0);
    EXPECT_EQ(constater(std::nullopt, kSeconde).lumiere, "Aucun signal");

    recue.verdict = d2xx::Verdict::breakCourt;
    EXPECT_TRUE(constater(recue, kSeconde).diagnostic.contains("88 µs"));
    recue.derniereComprise = 0;
    EXPECT_EQ(constater(recue, kSeconde).lumiere, "Signal illisible");
    EXPECT_EQ(constater(recue, kSeconde).niveau, 0);
}

TEST(Banc, lesInterrupteursChangentLesFaits) {
    const essai::Mac mac("sans-emetteur");
    // Tapé à la main : en hexadécimal, comme partout.
    mac.poserEtat("usb/souris", "fabricant 46d\nproduit C077\n");
    int nombre = 1;
    std::string nom = "banc";
    char* arguments[]{nom.data(), nullptr};
    const QApplication qt(nombre, arguments);
    // Un Mac sans émetteur permet d'en brancher un.
    cliquer(Banc(mac.reel("")), "Émetteur A1B2C3");
    EXPECT_TRUE(mac.lire("/etat/usb/emetteur-neuf").ends_with("serie A1B2C3\n"));
    const std::string autre = "*\t*\tY\tcom.objective-see.lulu\tLuLu\t[activated enabled]\n";
    mac.poserEtat("extensions_systeme",
                  "*\t*\tX\tcom.ftdi.vcp.dext\tN\t[activated enabled]\n" + autre);
    Banc fenetre(mac.reel(""));
    QAccessibleInterface* dite = QAccessible::queryAccessibleInterface(&fenetre);
    EXPECT_EQ(dite->role(), QAccessible::Window);
    EXPECT_EQ(dite->text(QAccessible::Name), "Mac simulé");
    QString suite; // celle de la touche Tab est celle de l'œil
    for (QWidget* ou = fenetre.nextInFocusChain(); ou != &fenetre; ou = ou->nextInFocusChain()) {
        const auto* bouton = qobject_cast<QAbstractButton*>(ou);
        suite += bouton == nullptr ? "" : bouton->text() + ";";
    }
    EXPECT_EQ(suite, "Émetteur A1B2C3;Autre appareil USB, 0403:6015;Autre appareil USB, 046d:c077;"
                     "Un autre logiciel tient l'émetteur;FTDIUSBSerialDextInstaller;");
    for (const bool rendu : {false, true}) {
        cliquer(fenetre, "Émetteur A1B2C3");
        EXPECT_EQ(mac.existe("/etat/usb/emetteur-neuf"), rendu);
        EXPECT_EQ(mac.existe("/etat/debranches/emetteur-neuf"), !rendu);
        cliquer(fenetre, "Un autre logiciel tient l'émetteur");
        EXPECT_EQ(mac.existe("/etat/emetteur_occupe"), !rendu);
    }
    cliquer(fenetre, "FTDIUSBSerialDextInstaller");
    EXPECT_TRUE(mac.lire("/etat/extensions_systeme").starts_with("*"))
        << "les Réglages sont fermés";
    mac.poserEtat("reglages_ouverts", "x-apple.systempreferences:\n");
    const Banc rouvert(mac.reel(""));
    for (const std::string etat : {"\t*\tX\tcom.ftdi.vcp.dext\tN\t[activated disabled]\n",
                                   "*\t*\tX\tcom.ftdi.vcp.dext\tN\t[activated enabled]\n"}) {
        cliquer(rouvert, "FTDIUSBSerialDextInstaller");
        EXPECT_EQ(mac.lire("/etat/extensions_systeme"), etat + autre) << "sa seule ligne change";
    }
}
