#include "mac_simule/banc/panneau_reglages.hpp"

#include "mac_simule/banc/apparence.hpp"
#include "mac_simule/banc/extensions.hpp"
#include "mac_simule/banc/interrupteur.hpp"

#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

namespace banc {

namespace {

QString expliquer(bool ouverts, Case etat) {
    if (!ouverts) {
        return "Fermés. L'assistant les ouvre quand il en a besoin.";
    }
    return etat == Case::absente
               ? "Ouverts. Aucune extension de pilote de FTDI n'est installée."
               : "Ouverts aux extensions de pilotes. Décochez celle de FTDI, puis revenez à "
                 "l'assistant.";
}

} // namespace

PanneauReglages::PanneauReglages(const Racine& racine)
    : Panneau("Réglages du Mac", racine), explication_(etiquette(Ton::discret)),
      extension_(new Interrupteur("FTDIUSBSerialDextInstaller")) {
    colonne()->addWidget(explication_);
    colonne()->addWidget(extension_);
    connect(extension_, &Interrupteur::clicked, this, &PanneauReglages::cocher);
}

void PanneauReglages::relire() {
    const bool ouverts = racine().present("reglages_ouverts");
    const Case etat = caseFtdi(racine().lire("extensions_systeme"));
    explication_->setText(expliquer(ouverts, etat));
    extension_->setVisible(etat != Case::absente);
    extension_->setEnabled(ouverts);
    extension_->setChecked(etat == Case::cochee);
}

void PanneauReglages::cocher(bool cochee) const {
    racine().ecrire("extensions_systeme", cocherFtdi(racine().lire("extensions_systeme"), cochee));
}

} // namespace banc
