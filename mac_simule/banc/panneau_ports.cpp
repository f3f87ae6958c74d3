#include "mac_simule/banc/panneaux.hpp"

#include <algorithm>
#include <ranges>

namespace banc {

namespace {

// Un scénario peut n'avoir aucun émetteur : on branche alors celui-ci.
const std::string kNomNeuf = "emetteur-neuf";
const std::string kFichierNeuf = "fabricant 0x0403\nproduit 0x6001\nserie A1B2C3\n";

using Appareils = std::map<std::string, faits::Peripherique>;

bool estEmetteur(const faits::Peripherique& appareil) {
    return appareil.fabricant == 0x0403 && appareil.produit == 0x6001;
}

Appareils lireAppareils(const faits::Mac& mac) {
    Appareils lus;
    for (const std::string dossier : {"debranches/", "usb/"}) {
        for (const std::string& nom : mac.noms(dossier)) {
            lus[nom] = faits::lirePeripherique(mac.texte(dossier + nom));
        }
    }
    if (std::ranges::none_of(lus | std::views::values, estEmetteur)) {
        lus[kNomNeuf] = faits::lirePeripherique(kFichierNeuf);
    }
    return lus;
}

// « Émetteur A1B2C3 »
QString designation(const faits::Peripherique& appareil) {
    if (!estEmetteur(appareil)) {
        return QString("Autre appareil USB, %1:%2")
            .arg(appareil.fabricant, 4, 16, QChar('0'))
            .arg(appareil.produit, 4, 16, QChar('0'));
    }
    const QString serie = QString::fromStdString(appareil.serie.value_or(""));
    return serie.isEmpty() ? QString("Émetteur sans numéro de série") : "Émetteur " + serie;
}

} // namespace

PanneauPorts::PanneauPorts(const faits::Mac& mac) : Panneau("Ports USB", mac) {
    liste_->setSpacing(2);
    colonne_->addLayout(liste_);
    occupe_ = ajouter(new Interrupteur("Un autre logiciel tient l'émetteur"));
    connect(occupe_, &Interrupteur::clicked, this, &PanneauPorts::occuper);
}

void PanneauPorts::relire() {
    const Appareils appareils = lireAppareils(mac_);
    if (!std::ranges::equal(appareils | std::views::keys, interrupteurs_ | std::views::keys)) {
        std::ranges::for_each(interrupteurs_ | std::views::values, [](auto* un) { delete un; });
        interrupteurs_.clear();
        for (const auto& [nom, appareil] : appareils) {
            ajouterPort(nom);
        }
    }
    for (const auto& [nom, appareil] : appareils) {
        interrupteurs_[nom]->setText(designation(appareil));
        interrupteurs_[nom]->setChecked(mac_.present("usb/" + nom));
    }
    occupe_->setChecked(mac_.present("emetteur_occupe"));
}

void PanneauPorts::ajouterPort(const std::string& nom) {
    auto* interrupteur = new Interrupteur({});
    connect(interrupteur, &Interrupteur::clicked, this,
            [this, nom](bool branche) { brancher(nom, branche); });
    liste_->addWidget(interrupteur);
    // La touche Tab suit l'œil : les ports, dans leur ordre, avant tout le reste.
    setTabOrder(interrupteurs_.empty() ? window() : interrupteurs_.rbegin()->second, interrupteur);
    interrupteurs_[nom] = interrupteur;
}

// Ici et plus bas, un refus du disque se voit : la prochaine relecture remet l'interrupteur comme
// le fichier.
void PanneauPorts::brancher(const std::string& nom, bool branche) const {
    const std::string de = (branche ? "debranches/" : "usb/") + nom;
    const std::string vers = (branche ? "usb/" : "debranches/") + nom;
    if (mac_.present(de)) {
        static_cast<void>(mac_.deplacer(de, vers));
    } else if (branche) {
        static_cast<void>(mac_.ecrire(vers, kFichierNeuf));
    }
}

void PanneauPorts::occuper(bool occupe) const {
    static_cast<void>(occupe ? mac_.ecrire("emetteur_occupe", "")
                             : mac_.retirer("emetteur_occupe"));
}

} // namespace banc
