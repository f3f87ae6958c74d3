#include "app/navigation.hpp"

PageSuivante pageSuivante(const Diagnostic& d, bool redemarrageEnAttente) {
    if (redemarrageEnAttente) {
        return PageSuivante::redemarrage;
    }
    if (d.nettoyageNecessaire()) {
        return PageSuivante::retrait;
    }
    if (d.desactivationDextNecessaire()) {
        return PageSuivante::extension;
    }
    return d.emetteurs.empty() ? PageSuivante::brancher : PageSuivante::test;
}
