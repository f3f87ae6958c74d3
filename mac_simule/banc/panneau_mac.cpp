#include "mac_simule/banc/panneaux.hpp"

#include <QtCore/QDateTime>
#include <QtCore/QLocale>
#include <QtCore/QRegularExpression>

namespace banc {

namespace {

QString demarrage(const QString& fait) {
    static const QRegularExpression secondes("sec = (\\d+)");
    const QRegularExpressionMatch lu = secondes.match(fait);
    if (!lu.hasMatch()) {
        return "Heure de démarrage illisible : " + fait;
    }
    const QDateTime date = QDateTime::fromSecsSinceEpoch(lu.captured(1).toLongLong());
    return QLocale(QLocale::French, QLocale::France)
        .toString(date, "'Démarré le' dddd d MMMM yyyy 'à' HH:mm:ss");
}

QString extensionsChargees(const QString& fait) {
    QStringList noms;
    for (const QString& ligne : fait.split('\n', Qt::SkipEmptyParts)) {
        const QStringList colonnes = ligne.split('\t');
        noms.append(colonnes.value(0).section('.', -1) + " " + colonnes.value(1));
    }
    return noms.isEmpty() ? QString("Aucune extension tierce n'est chargée.")
                          : "Extensions chargées : " + noms.join(", ");
}

} // namespace

PanneauMac::PanneauMac(const faits::Mac& mac) : Panneau("Ce Mac", mac) {
    colonne_->setSpacing(4);
}

void PanneauMac::relire() {
    identite_->setText(
        QString("%1, puce %2, macOS %3")
            .arg(fait("modele"), fait("puce") == "intel" ? "Intel" : "Apple", fait("version")));
    demarrage_->setText(demarrage(fait("demarrage")));
    extensions_->setText(extensionsChargees(fait("kexts_charges")));
}

} // namespace banc
