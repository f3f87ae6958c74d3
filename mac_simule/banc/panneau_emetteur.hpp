// L'émetteur : le brancher, le débrancher, le faire tenir par un autre logiciel.
#pragma once

#include "mac_simule/banc/panneau.hpp"

namespace banc {

class Interrupteur;

class PanneauEmetteur : public Panneau {
public:
    explicit PanneauEmetteur(const Racine& racine);

    void relire() override;

private:
    void refaireLaListe(const QStringList& noms);
    void brancher(const QString& nom, bool branche) const;
    void occuper(bool occupe) const;

    QVBoxLayout* liste_;
    QStringList noms_; // de la liste affichée
    QList<Interrupteur*> interrupteurs_;
    Interrupteur* occupe_;
};

// « Émetteur A1B2C3 », d'après le contenu de son fichier.
QString designation(const QString& fichier);

} // namespace banc
