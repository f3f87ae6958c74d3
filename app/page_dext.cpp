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
// Aucun outil ordinaire, même lent, n'en laisse autant en route.
constexpr int kAnalysesMax = 30;

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
    repeter(kIntervalle, [this] { verifierDext(true); });
}

void Assistant::ouvrirReglages() {
    Actions::ouvrirReglagesExtensions();
}

void Assistant::verifierDextBouton() {
    verifierDext(false);
}

// Les vérifications ne s'attendent pas l'une l'autre.
void Assistant::verifierDext(bool silencieux) {
    // Un outil qui ne finit jamais en garderait une de plus toutes les deux secondes, pour
    // toujours.
    if (analysesEnCours_ < kAnalysesMax) {
        analyserPuis(
            [this, silencieux](const Diagnostic& d) { dextVerifie(d.dextFTDIActif, silencieux); });
    }
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
    continuerApres(Etape::changement, redemarrageEnAttente());
}
