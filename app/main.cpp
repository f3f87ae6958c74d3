#include "app/delegue.hpp"
#include "plateforme/application.hpp"
#include "plateforme/processus.hpp"

namespace {

// Gardé jusqu'à la fin, même quand un fil travaille encore au moment de quitter.
Delegue& delegue = *new Delegue;

} // namespace

int main() {
    plateforme::retablirFinDesEnfants();
    plateforme::definirDelegue(
        {[] { delegue.applicationDidFinishLaunching(); },
         [] { return Delegue::applicationShouldTerminateAfterLastWindowClosed(); }});
    plateforme::adopterPolitiqueOrdinaire();
    plateforme::executerApplication();
    return 0;
}
