// Les Réglages du Mac, ouverts ou non, et la case de l'extension de FTDI.
#pragma once

#include "mac_simule/banc/panneau.hpp"

class QLabel;

namespace banc {

class Interrupteur;

class PanneauReglages : public Panneau {
public:
    explicit PanneauReglages(const Racine& racine);

    void relire() override;

private:
    void cocher(bool cochee) const;

    QLabel* explication_;
    Interrupteur* extension_;
};

} // namespace banc
