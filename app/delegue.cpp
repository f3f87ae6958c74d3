#include "app/delegue.hpp"

#include "actions/actions.hpp"
#include "plateforme/application.hpp"
#include "plateforme/paquet.hpp"
#include "support/journal.hpp"

namespace {

void installerMenu() {
    using plateforme::ActionMenu;
    plateforme::installerMenu({{"", {{"Quitter l'Assistant Lumivia", ActionMenu::terminer, 'q'}}},
                               {"Édition", {{"Copier", ActionMenu::copier, 'c'}}}});
}

std::string version() {
    const plateforme::ValeurInfo valeur = plateforme::valeurInfo("CFBundleShortVersionString");
    return valeur.genre == plateforme::ValeurInfo::Genre::absente ? "?" : valeur.texte;
}

} // namespace

void Delegue::applicationDidFinishLaunching() {
    installerMenu();
    Journal::shared().note("Démarrage de l'assistant " + version());
    // Avant l'assistant : l'agent a disparu quoi que l'utilisateur fasse ensuite.
    const bool relance = Actions::annulerRelance();
    assistant_ = Assistant::creer();
    assistant_->fenetre().montrer();
    plateforme::activerApplication();
    if (relance) {
        Journal::shared().note("Rouvert automatiquement après le redémarrage");
        assistant_->analyserMaintenant();
    }
}
