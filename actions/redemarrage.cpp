#include "actions/actions.hpp"
#include "plateforme/systeme_exploitation.hpp"
#include "support/journal.hpp"

void Actions::redemarrer() {
    Journal::shared().note("Redémarrage demandé");
    programmerRelance();
    plateforme::demanderRedemarrage();
}
