#include "mac_simule/banc/panneau_emetteur.hpp"

#include "mac_simule/banc/apparence.hpp"
#include "mac_simule/banc/interrupteur.hpp"

#include <QtCore/QRegularExpression>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

namespace banc {

namespace {

// Un scénario peut n'avoir aucun émetteur : on branche alors celui-ci.
const QString nomNeuf = "emetteur-neuf";
const QString fichierNeuf = "fabricant 0x0403\nproduit 0x6001\nserie A1B2C3\n";

QString valeur(const QString& fichier, const QString& cle) {
    const QRegularExpression ligne("^" + cle + " (.+)$", QRegularExpression::MultilineOption);
    return ligne.match(fichier).captured(1).trimmed();
}

bool estEmetteur(const QString& fichier) {
    return valeur(fichier, "fabricant").toUInt(nullptr, 16) == 0x0403 &&
           valeur(fichier, "produit").toUInt(nullptr, 16) == 0x6001;
}

} // namespace

QString designation(const QString& fichier) {
    if (!estEmetteur(fichier)) {
        return QString("Autre appareil USB, %1:%2")
            .arg(valeur(fichier, "fabricant").mid(2), valeur(fichier, "produit").mid(2));
    }
    const QString serie = valeur(fichier, "serie");
    return serie.isEmpty() ? QString("Émetteur sans numéro de série") : "Émetteur " + serie;
}

PanneauEmetteur::PanneauEmetteur(const Racine& racine)
    : Panneau("Ports USB", racine), liste_(new QVBoxLayout),
      occupe_(new Interrupteur("Un autre logiciel tient l'émetteur")) {
    liste_->setSpacing(2);
    colonne()->addLayout(liste_);
    colonne()->addWidget(occupe_);
    connect(occupe_, &Interrupteur::clicked, this, &PanneauEmetteur::occuper);
}

void PanneauEmetteur::relire() {
    QStringList noms = racine().noms("usb") + racine().noms("debranches");
    const auto contenu = [this](const QString& nom) {
        const QString branche = racine().lire("usb/" + nom);
        return branche.isEmpty() ? racine().lire("debranches/" + nom) : branche;
    };
    if (std::ranges::none_of(noms, [&](const QString& nom) { return estEmetteur(contenu(nom)); })) {
        noms.append(nomNeuf);
    }
    noms.removeDuplicates();
    noms.sort();
    if (noms != noms_) {
        refaireLaListe(noms);
    }
    for (qsizetype i = 0; i < noms.size(); ++i) {
        const QString fichier = contenu(noms[i]);
        interrupteurs_[i]->setText(designation(fichier.isEmpty() ? fichierNeuf : fichier));
        interrupteurs_[i]->setChecked(racine().present("usb/" + noms[i]));
    }
    occupe_->setChecked(racine().present("emetteur_occupe"));
}

void PanneauEmetteur::refaireLaListe(const QStringList& noms) {
    qDeleteAll(interrupteurs_);
    interrupteurs_.clear();
    noms_ = noms;
    for (const QString& nom : noms) {
        auto* interrupteur = new Interrupteur({});
        connect(interrupteur, &Interrupteur::clicked, this,
                [this, nom](bool branche) { brancher(nom, branche); });
        liste_->addWidget(interrupteur);
        interrupteurs_.append(interrupteur);
    }
    for (qsizetype i = 0; i < noms.size(); ++i) {
        setTabOrder(interrupteurs_[i], interrupteurs_.value(i + 1, occupe_));
    }
}

// Un refus du disque se voit : la prochaine relecture remet l'interrupteur comme le fichier.
void PanneauEmetteur::brancher(const QString& nom, bool branche) const {
    const QString de = (branche ? "debranches/" : "usb/") + nom;
    const QString vers = (branche ? "usb/" : "debranches/") + nom;
    if (racine().present(de)) {
        racine().deplacer(de, vers);
    } else if (branche) {
        racine().ecrire(vers, fichierNeuf);
    }
}

void PanneauEmetteur::occuper(bool occupe) const {
    if (occupe) {
        racine().ecrire("emetteur_occupe", {});
    } else {
        racine().retirer("emetteur_occupe");
    }
}

} // namespace banc
