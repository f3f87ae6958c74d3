#include "mac_simule/banc/panneaux.hpp"

namespace banc {

namespace {

const QString kIdentifiant = "com.ftdi.vcp.dext";
const QString kActive = "[activated enabled]";
const QString kDesactivee = "[activated disabled]";

QStringList lignesDe(const faits::Mac& mac) {
    return QString::fromStdString(mac.texte("extensions_systeme")).split('\n');
}

// Vrai quand une ligne de l'extension de FTDI le dit dans cet état. Une version qui s'en va n'est
// ni active ni désactivée.
bool dite(const QStringList& lignes, const QString& etat) {
    return std::ranges::any_of(lignes, [&](const QString& ligne) {
        return ligne.contains(kIdentifiant) && ligne.contains(etat);
    });
}

QString expliquer(bool ouverts, bool installee) {
    if (!ouverts) {
        return "Fermés. L'assistant les ouvre quand il en a besoin.";
    }
    return installee ? "Ouverts aux extensions de pilotes. Décochez celle de FTDI, puis revenez à "
                       "l'assistant."
                     : "Ouverts. Aucune extension de pilote de FTDI n'est installée.";
}

} // namespace

PanneauReglages::PanneauReglages(const faits::Mac& mac) : Panneau("Réglages du Mac", mac) {
    connect(extension_, &Interrupteur::clicked, this, &PanneauReglages::cocher);
}

void PanneauReglages::relire() {
    const bool ouverts = mac_.present("reglages_ouverts");
    const QStringList lignes = lignesDe(mac_);
    const bool cochee = dite(lignes, kActive);
    const bool installee = cochee || dite(lignes, kDesactivee);
    explication_->setText(expliquer(ouverts, installee));
    extension_->setVisible(installee);
    extension_->setEnabled(ouverts);
    extension_->setChecked(cochee);
}

// « * * … [activated enabled] » devient «   * … [activated disabled] », ou l'inverse ; les autres
// lignes ne bougent pas.
void PanneauReglages::cocher(bool cochee) const {
    const QString& avant = cochee ? kDesactivee : kActive;
    QStringList lignes = lignesDe(mac_);
    for (QString& ligne : lignes) {
        if (ligne.contains(kIdentifiant) && ligne.contains(avant)) {
            ligne.replace(avant, cochee ? kActive : kDesactivee);
            // La première colonne, jusqu'à la tabulation, dit si l'extension est permise.
            ligne = (cochee ? "*" : "") + ligne.sliced(std::max<qsizetype>(ligne.indexOf('\t'), 0));
        }
    }
    static_cast<void>(mac_.ecrire("extensions_systeme", lignes.join('\n').toStdString()));
}

} // namespace banc
