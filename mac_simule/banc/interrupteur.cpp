#include "mac_simule/banc/interrupteur.hpp"

#include "mac_simule/banc/apparence.hpp"

#include <QtGui/QPainter>

namespace banc {

namespace {
constexpr int largeur = 38;
constexpr int hauteur = 22;
} // namespace

Interrupteur::Interrupteur(const QString& libelle) {
    setText(libelle);
    setCheckable(true);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize Interrupteur::sizeHint() const {
    return {fontMetrics().horizontalAdvance(text()) + largeur + 16, hauteur + 6};
}

void Interrupteur::paintEvent(QPaintEvent* /*evenement*/) {
    QPainter peintre(this);
    peintre.setRenderHint(QPainter::Antialiasing);
    peintre.setPen(isEnabled() ? couleurs().texte : couleurs().discret);
    peintre.drawText(rect().adjusted(0, 0, -largeur - 16, 0), Qt::AlignVCenter | Qt::AlignLeft,
                     fontMetrics().elidedText(text(), Qt::ElideRight, width() - largeur - 16));
    peindreBascule(peintre,
                   QRectF(width() - largeur - 2, (height() - hauteur) / 2.0, largeur, hauteur));
}

void Interrupteur::peindreBascule(QPainter& peintre, const QRectF& cadre) const {
    peintre.setOpacity(isEnabled() ? 1 : 0.45);
    if (hasFocus()) {
        peintre.setPen(QPen(couleurs().accent, 1.5));
        peintre.setBrush(Qt::NoBrush);
        peintre.drawRoundedRect(cadre.adjusted(-2, -2, 2, 2), hauteur / 2.0 + 2, hauteur / 2.0 + 2);
    }
    peintre.setPen(Qt::NoPen);
    peintre.setBrush(isChecked() ? couleurs().accent : couleurs().repos);
    peintre.drawRoundedRect(cadre, hauteur / 2.0, hauteur / 2.0);
    const double diametre = hauteur - 4;
    const double gauche = isChecked() ? cadre.right() - diametre - 2 : cadre.left() + 2;
    peintre.setBrush(Qt::white);
    peintre.drawEllipse(QRectF(gauche, cadre.top() + 2, diametre, diametre));
}

} // namespace banc
