// Un interrupteur à bascule, comme ceux des Réglages d'un Mac : son libellé à gauche, lui à droite.
#pragma once

#include <QtWidgets/QAbstractButton>

namespace banc {

class Interrupteur : public QAbstractButton {
public:
    explicit Interrupteur(const QString& libelle);

protected:
    void paintEvent(QPaintEvent* evenement) override;
};

} // namespace banc
