#include "mac_simule/banc/extensions.hpp"

#include <QtCore/QStringList>

namespace banc {

namespace {
const QString identifiant = "com.ftdi.vcp.dext";
const QString active = "[activated enabled]";
const QString desactivee = "[activated disabled]";
} // namespace

Case caseFtdi(const QString& lignes) {
    Case etat = Case::absente;
    for (const QString& ligne : lignes.split('\n')) {
        if (!ligne.contains(identifiant)) {
            continue;
        }
        if (ligne.contains(active)) {
            return Case::cochee;
        }
        if (ligne.contains(desactivee)) {
            etat = Case::decochee;
        }
    }
    return etat;
}

QString cocherFtdi(const QString& lignes, bool cochee) {
    QStringList suite = lignes.split('\n');
    for (QString& ligne : suite) {
        const QString& avant = cochee ? desactivee : active;
        if (!ligne.contains(identifiant) || !ligne.contains(avant)) {
            continue;
        }
        ligne.replace(avant, cochee ? active : desactivee);
        // La première colonne, jusqu'à la tabulation, dit si l'extension est permise.
        ligne = (cochee ? "*" : "") + ligne.sliced(std::max<qsizetype>(ligne.indexOf('\t'), 0));
    }
    return suite.join('\n');
}

} // namespace banc
