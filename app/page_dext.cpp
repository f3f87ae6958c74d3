// La page qui guide vers les Réglages, et qui remarque seule que l'extension y est désactivée.
#include "actions/actions.hpp"
#include "app/assistant.hpp"
#include "plateforme/alerte.hpp"
#include "plateforme/application.hpp"
#include "support/journal.hpp"

namespace {

constexpr double kHauteurImages = 230;
constexpr double kEspacementImages = 12;
constexpr double kIntervalle = 2.0; // s, entre deux vérifications
constexpr int kVerificationsMax =
    30; // aucun outil ordinaire, même lent, n'en laisse autant en route

} // namespace

void Assistant::pageDext() {
    page(
        "Désactiver le pilote FTDI",
        "Ce pilote empêche certains logiciels lumière de piloter l'émetteur. Le pilote intégré à "
        "macOS le remplace.\n\n  1.  Cliquez sur « Ouvrir les Réglages » ci-dessous.\n  2.  Dans la "
        "fenêtre qui s'ouvre, descendez jusqu'à « Extensions » et choisissez « Par catégorie ».\n  "
        "3.  Cliquez sur le ⓘ à droite de « Extensions de gestionnaire » (ligne « NullDriver »).\n  "
        "4.  Décochez « FTDIUSBSerialDextInstaller », puis cliquez sur « Terminé ».\n\nL'assistant "
        "détecte tout seul quand c'est fait.",
        {{"Ouvrir les Réglages", &Assistant::ouvrirReglages},
         {"J'ai terminé", &Assistant::verifierDextBouton}},
        0);
    rangeeImages(
        {{"02-ouverture-extensions-par-categorie",
          "Étapes 1 et 2 : dans les Réglages, les extensions par catégorie."},
         {"03-extensions-gestionnaire-ftdi-desactive",
          "Étapes 3 et 4 : l'extension FTDIUSBSerialDextInstaller décochée, puis Terminé."}},
        kHauteurImages, kEspacementImages);
    minuteur_ = std::make_unique<plateforme::Minuteur>(kIntervalle, [faible = weak_from_this()] {
        if (const std::shared_ptr<Assistant> assistant = faible.lock()) {
            assistant->verifierDext(true);
        }
    });
}

void Assistant::ouvrirReglages() {
    Actions::ouvrirReglagesExtensions();
}

void Assistant::verifierDextBouton() {
    verifierDext(false);
}

// Les vérifications ne s'attendent pas l'une l'autre. Celle dont la page a été quittée entre-temps
// est abandonnée : deux qui finissent ensemble n'agissent qu'une fois.
void Assistant::verifierDext(bool silencieux) {
    // Un outil qui ne finit jamais en garderait une de plus toutes les deux secondes, pour
    // toujours.
    if (verificationsEnCours_ == kVerificationsMax) {
        return;
    }
    ++verificationsEnCours_;
    plateforme::executerEnArrierePlan(
        [assistant = shared_from_this(), silencieux, demandee = pageCourante_] {
            const bool actif = Diagnostic::analyser().dextFTDIActif;
            plateforme::executerSurPrincipal([assistant, actif, silencieux, demandee] {
                --assistant->verificationsEnCours_;
                if (assistant->pageCourante_ == demandee) {
                    assistant->dextVerifie(actif, silencieux);
                }
            });
        });
}

void Assistant::dextVerifie(bool actif, bool silencieux) {
    if (actif) {
        if (!silencieux) {
            plateforme::alerte("Le pilote FTDI est encore activé.",
                               "Suivez les étapes 1 à 4, puis cliquez à nouveau sur « J'ai "
                               "terminé ».");
        }
        return;
    }
    Journal::shared().note("Pilote FTDI DriverKit désactivé par l'utilisateur");
    diagnostic_.dextFTDIActif = false;
    plateforme::activerApplication();
    if (redemarrageEnAttente()) {
        pageRedemarrage();
    } else {
        analyser();
    }
}
