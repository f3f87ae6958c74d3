// La bibliothèque telle que le programme la voit : chargée par dlopen, devant un Mac simulé.
#include "bibliotheque.hpp"
#include "commun/mac.hpp"

#include <fcntl.h>
#include <sys/file.h>

using namespace essai;

namespace {

class BibliothequeD2xx : public testing::Test {
protected:
    void debrancher() const { std::filesystem::rename(fichier, tiroir); }

    void rebrancher() const { std::filesystem::rename(tiroir, fichier); }

    Mac mac;
    Bibliotheque d2xx;
    const std::filesystem::path fichier = mac.reel("/etat/usb/emetteur-1");
    const std::filesystem::path tiroir = mac.reel("/etat/tiroir");
};

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
    // Un autre processus le tient par le verrou de ce fichier, jusqu'à sa fin.
    const int autre = ::open(mac.reel("/etat/reception").c_str(), O_RDWR | O_CLOEXEC);
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
    const auto echoue = [this] { return d2xx.envoyer(255, 0) == d2xx::erreurES; };
    ASSERT_TRUE(attendre(echoue));
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
    EXPECT_TRUE(attendre(echoue));
    EXPECT_EQ(d2xx.fermer(), d2xx::reussi);
}
