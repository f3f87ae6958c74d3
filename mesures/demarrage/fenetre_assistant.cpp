// L'assistant, de son lancement à la première image de sa page de bienvenue.
#include "app/delegue.hpp"
#include "mesures/demarrage/premiere_image.hpp"
#include "plateforme/application.hpp"

int main(int nombre, char**) {
    static Delegue delegue;
    plateforme::definirDelegue(
        {[nombre] {
             mesures::conclure(nombre > 1);
             delegue.applicationDidFinishLaunching();
         },
         [] { return Delegue::applicationShouldTerminateAfterLastWindowClosed(); }});
    plateforme::adopterPolitiqueOrdinaire();
    plateforme::executerApplication();
    return 0;
}
