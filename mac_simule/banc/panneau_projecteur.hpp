// Le projecteur, et ce qu'il reçoit.
#pragma once

#include "mac_simule/banc/panneau.hpp"

class QLabel;

namespace banc {

class VueProjecteur;

class PanneauProjecteur : public Panneau {
public:
    explicit PanneauProjecteur(const Racine& racine);

    void relire() override;

private:
    VueProjecteur* vue_;
    QLabel* lumiere_;
    QLabel* reception_;
    QLabel* diagnostic_;
};

} // namespace banc
