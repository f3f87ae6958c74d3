// La marque d'un redémarrage en attente, et la page qui le demande.
//
// La marque est l'heure de démarrage du Mac au moment du retrait : elle ne vaut que tant que le Mac
// n'a pas redémarré, sans que personne ait à l'effacer.
#include "actions/actions.hpp"
#include "app/assistant.hpp"
#include "plateforme/preferences.hpp"
#include "support/systeme.hpp"
#include "support/utf8.hpp"

std::string Assistant::heureDemarrage() {
    return rogner(Systeme::commande("/usr/sbin/sysctl", {"-n", "kern.boottime"}).sortie);
}

bool Assistant::redemarrageEnAttente() const {
    const auto marque = plateforme::lirePreference(cleRedemarrage_);
    return marque && *marque == heureDemarrage();
}

void Assistant::marquerRedemarrage() const {
    plateforme::ecrirePreference(cleRedemarrage_, heureDemarrage());
}

void Assistant::oublierRedemarrage() const {
    plateforme::retirerPreference(cleRedemarrage_);
}

void Assistant::pageRedemarrage() {
    page(
        "Redémarrer le Mac",
        "C'est presque fini : le Mac doit redémarrer pour oublier l'ancien pilote.\n\nEnregistrez "
        "votre travail dans vos autres applications, puis cliquez sur « Redémarrer maintenant »."
        "\nAprès le redémarrage, l'Assistant Lumivia se rouvre tout seul et termine par un test "
        "avec votre projecteur. (S'il ne se rouvre pas, ouvrez-le depuis le dossier Applications.)",
        {{"Plus tard", &Assistant::quitter}, {"Redémarrer maintenant", &Assistant::redemarrer}});
}

void Assistant::redemarrer() {
    Actions::redemarrer();
}
