#include "mac_simule/banc/panneau_projecteur.hpp"

#include "mac_simule/banc/apparence.hpp"
#include "mac_simule/banc/phrases.hpp"
#include "mac_simule/banc/vue_projecteur.hpp"
#include "mac_simule/d2xx/horloge.hpp"

#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

namespace banc {

PanneauProjecteur::PanneauProjecteur(const Racine& racine)
    : Panneau("Projecteur", racine), vue_(new VueProjecteur), lumiere_(etiquette(Ton::titre)),
      reception_(etiquette(Ton::discret)), diagnostic_(etiquette(Ton::courant)) {
    colonne()->addWidget(vue_);
    colonne()->addWidget(lumiere_);
    colonne()->addWidget(reception_);
    colonne()->addWidget(diagnostic_);
}

void PanneauProjecteur::relire() {
    const Constat constat = constater(d2xx::lireReception(racine().chemin()), d2xx::maintenant());
    vue_->eclairer(constat.niveau);
    lumiere_->setText(constat.lumiere);
    reception_->setText(constat.reception);
    diagnostic_->setText(constat.diagnostic.isEmpty() ? " " : "● " + constat.diagnostic);
    QPalette palette = diagnostic_->palette();
    palette.setColor(QPalette::WindowText, constat.signal == Constat::Signal::correct
                                               ? couleurs().bon
                                               : couleurs().mauvais);
    diagnostic_->setPalette(palette);
}

} // namespace banc
