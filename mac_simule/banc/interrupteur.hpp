// Un interrupteur à bascule, comme ceux des Réglages d'un Mac : son libellé à gauche, lui à droite.
#pragma once

#include <QtWidgets/QAbstractButton>

namespace banc {

class Interrupteur : public QAbstractButton {
public:
    explicit Interrupteur(const QString& libelle);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* evenement) override;

private:
    void peindreBascule(QPainter& peintre, const QRectF& cadre) const;
};

} // namespace banc
