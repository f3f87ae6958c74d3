// Les panneaux du banc : des cartes, chacune son titre et sa colonne. Chacune relit les faits quand
// on le lui demande, et n'a pas d'autre mémoire. Fil principal.
#pragma once

#include "mac_simule/banc/apparence.hpp"
#include "mac_simule/banc/interrupteur.hpp"
#include "mac_simule/faits/faits.hpp"

#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

#include <map>

namespace banc {

class VueProjecteur;

class Panneau : public QFrame {
public:
    Panneau(const QString& titre, faits::Mac mac);

    virtual void relire() = 0;

protected:
    // Tout un fait, sans ses blancs du bout.
    [[nodiscard]] QString fait(const std::string& nom) const;

    template <class Vue>
    Vue* ajouter(Vue* vue) {
        colonne_->addWidget(vue);
        return vue;
    }

    QVBoxLayout* colonne_;
    const faits::Mac mac_;
};

// Le projecteur, et ce qu'il reçoit.
class PanneauProjecteur : public Panneau {
public:
    explicit PanneauProjecteur(const faits::Mac& mac);

    void relire() override;

private:
    VueProjecteur* vue_;
    QLabel* lumiere_ = ajouter(etiquette(Ton::titre));
    QLabel* reception_ = ajouter(etiquette(Ton::discret));
    QLabel* diagnostic_ = ajouter(etiquette(Ton::courant));
};

// Les appareils USB, branchés ou non, et l'émetteur qu'un autre logiciel tient.
class PanneauPorts : public Panneau {
public:
    explicit PanneauPorts(const faits::Mac& mac);

    void relire() override;

private:
    void ajouterPort(const std::string& nom);
    void brancher(const std::string& nom, bool branche) const;
    void occuper(bool occupe) const;

    QVBoxLayout* liste_ = new QVBoxLayout;
    std::map<std::string, Interrupteur*> interrupteurs_; // de la liste affichée
    Interrupteur* occupe_;
};

// Les Réglages du Mac, ouverts ou non, et la case de l'extension de FTDI.
class PanneauReglages : public Panneau {
public:
    explicit PanneauReglages(const faits::Mac& mac);

    void relire() override;

private:
    void cocher(bool cochee) const;

    QLabel* explication_ = ajouter(etiquette(Ton::discret));
    Interrupteur* extension_ = ajouter(new Interrupteur("FTDIUSBSerialDextInstaller"));
};

// L'identité du Mac : modèle, puce, système, démarrage, extensions du noyau chargées.
class PanneauMac : public Panneau {
public:
    explicit PanneauMac(const faits::Mac& mac);

    void relire() override;

private:
    QLabel* identite_ = ajouter(etiquette(Ton::courant));
    QLabel* demarrage_ = ajouter(etiquette(Ton::discret));
    QLabel* extensions_ = ajouter(etiquette(Ton::discret));
};

} // namespace banc
