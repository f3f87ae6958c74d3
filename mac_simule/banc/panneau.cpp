#include "mac_simule/banc/panneau.hpp"

#include "mac_simule/banc/apparence.hpp"

#include <QtGui/QPainter>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

namespace banc {

Panneau::Panneau(const QString& titre, Racine racine)
    : racine_(std::move(racine)), colonne_(new QVBoxLayout(this)) {
    colonne_->setContentsMargins(16, 12, 16, 14);
    colonne_->setSpacing(8);
    colonne_->addWidget(etiquette(Ton::titre, titre));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void Panneau::paintEvent(QPaintEvent* /*evenement*/) {
    QPainter peintre(this);
    peintre.setRenderHint(QPainter::Antialiasing);
    peintre.setPen(couleurs().bord);
    peintre.setBrush(couleurs().carte);
    peintre.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 10, 10);
}

} // namespace banc
