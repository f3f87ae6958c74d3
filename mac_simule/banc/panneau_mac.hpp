// L'identité du Mac simulé : modèle, puce, système, démarrage, extensions du noyau chargées.
#pragma once

#include "mac_simule/banc/panneau.hpp"

class QLabel;

namespace banc {

class PanneauMac : public Panneau {
public:
    explicit PanneauMac(const Racine& racine);

    void relire() override;

private:
    QLabel* identite_;
    QLabel* demarrage_;
    QLabel* extensions_;
};

} // namespace banc
