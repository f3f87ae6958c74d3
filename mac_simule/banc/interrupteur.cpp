#include "mac_simule/banc/interrupteur.hpp"

#include "mac_simule/banc/apparence.hpp"

#include <QtGui/QPainter>
#include <QtWidgets/QStyle>

namespace banc {

namespace {
constexpr int kLargeur = 38;
constexpr int kHauteur = 22;
} // namespace

Interrupteur::Interrupteur(const QString& libelle) {
    setText(libelle);
    setCheckable(true);
    setCursor(Qt::PointingHandCursor);
    setFixedHeight(kHauteur + 6);
}

void Interrupteur::paintEvent(QPaintEvent* /*evenement*/) {
    QPainter peintre(this);
    peintre.setRenderHint(QPainter::Antialiasing);
    const QRect place = rect().adjusted(0, 0, -kLargeur - 16, 0);
    const QString libelle = fontMetrics().elidedText(text(), Qt::ElideRight, place.width());
    style()->drawItemText(&peintre, place, Qt::AlignVCenter | Qt::AlignLeft, palette(), isEnabled(),
                          libelle, QPalette::WindowText);
    const QRectF cadre(width() - kLargeur - 2, (height() - kHauteur) / 2.0, kLargeur, kHauteur);
    peintre.setOpacity(isEnabled() ? 1 : 0.45);
    if (hasFocus()) {
        peintre.setPen(QPen(couleur(Teinte::accent), 1.5));
        peintre.drawRoundedRect(cadre.adjusted(-2, -2, 2, 2), kHauteur / 2.0 + 2,
                                kHauteur / 2.0 + 2);
    }
    peintre.setPen(Qt::NoPen);
    peintre.setBrush(couleur(isChecked() ? Teinte::accent : Teinte::repos));
    peintre.drawRoundedRect(cadre, kHauteur / 2.0, kHauteur / 2.0);
    const double diametre = kHauteur - 4;
    const double gauche = isChecked() ? cadre.right() - diametre - 2 : cadre.left() + 2;
    peintre.setBrush(Qt::white);
    peintre.drawEllipse(QRectF(gauche, cadre.top() + 2, diametre, diametre));
}

} // namespace banc
