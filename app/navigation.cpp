#include "app/navigation.hpp"

namespace {

PageSuivante apresUneAnalyse(const Diagnostic& d, bool redemarrage) {
    if (redemarrage) {
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

// L'extension passe avant le redémarrage : il les achève tous les deux.
PageSuivante apresUnChangement(const Diagnostic& d, bool redemarrage) {
    if (d.desactivationDextNecessaire()) {
        return PageSuivante::extension;
    }
    return redemarrage ? PageSuivante::redemarrage : PageSuivante::analyse;
}

} // namespace

PageSuivante pageSuivante(Etape achevee, const Diagnostic& d, bool redemarrage) {
    return achevee == Etape::analyse ? apresUneAnalyse(d, redemarrage)
                                     : apresUnChangement(d, redemarrage);
}
