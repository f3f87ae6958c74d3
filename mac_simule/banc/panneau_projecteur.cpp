#include "mac_simule/banc/panneaux.hpp"

#include "mac_simule/banc/phrases.hpp"
#include "mac_simule/banc/vue_projecteur.hpp"
#include "mac_simule/d2xx/depot.hpp"

namespace banc {

PanneauProjecteur::PanneauProjecteur(const faits::Mac& mac)
    : Panneau("Projecteur", mac), vue_(ajouter(new VueProjecteur)) {}

void PanneauProjecteur::relire() {
    const Constat constat = constater(d2xx::lireReception(mac_.racine()), d2xx::maintenant());
    const bool correct = constat.signal == Constat::Signal::correct;
    vue_->eclairer(constat.niveau);
    lumiere_->setText(constat.lumiere);
    reception_->setText(constat.reception);
    diagnostic_->setText(constat.diagnostic.isEmpty() ? " " : "● " + constat.diagnostic);
    colorer(diagnostic_, couleur(correct ? Teinte::bon : Teinte::mauvais));
}

} // namespace banc
