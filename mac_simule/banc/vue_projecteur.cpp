#include "mac_simule/banc/vue_projecteur.hpp"

#include "mac_simule/banc/apparence.hpp"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace banc {

namespace {

// Le dessin est fait dans un repère de 400 × 200, la lentille au point d'où part le faisceau.
constexpr QSizeF kRepere{400, 200};
constexpr QPointF kLentille{200, 66};
constexpr QPointF kPiste{200, 172};

QColor lumiere(double niveau, double opacite) {
    QColor teinte(255, 232, 178);
    teinte.setAlphaF(static_cast<float>(niveau * opacite));
    return teinte;
}

} // namespace

VueProjecteur::VueProjecteur() {
    setMinimumSize(360, 190);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void VueProjecteur::eclairer(double niveau) {
    if (niveau != niveau_) {
        niveau_ = niveau;
        update();
    }
}

void VueProjecteur::paintEvent(QPaintEvent* /*evenement*/) {
    QPainter peintre(this);
    peintre.setRenderHint(QPainter::Antialiasing);
    QPainterPath scene;
    scene.addRoundedRect(rect(), 8, 8);
    peintre.setClipPath(scene);
    peintre.fillRect(rect(), couleur(Teinte::scene));
    const double echelle = height() / kRepere.height();
    peintre.translate((width() - kRepere.width() * echelle) / 2, 0);
    peintre.scale(echelle, echelle);
    peindreFaisceau(peintre);
    peindreLanterne(peintre);
}

void VueProjecteur::peindreFaisceau(QPainter& peintre) const {
    peintre.setPen(Qt::NoPen);
    QRadialGradient tache(kPiste, 120);
    tache.setColorAt(0, lumiere(niveau_, 0.95));
    tache.setColorAt(0.6, lumiere(niveau_, 0.55));
    tache.setColorAt(1, lumiere(niveau_, 0));
    peintre.setBrush(tache);
    peintre.drawEllipse(kPiste, 118, 22);

    QPainterPath faisceau(kLentille - QPointF(20, 0));
    faisceau.lineTo(kLentille + QPointF(20, 0));
    faisceau.lineTo(kPiste + QPointF(112, 0));
    faisceau.quadTo(kPiste + QPointF(0, 34), kPiste - QPointF(112, 0));
    faisceau.closeSubpath();
    QLinearGradient degrade(kLentille, kPiste);
    degrade.setColorAt(0, lumiere(niveau_, 0.85));
    degrade.setColorAt(1, lumiere(niveau_, 0.12));
    peintre.setBrush(degrade);
    peintre.drawPath(faisceau);

    QRadialGradient halo(kLentille, 150);
    halo.setColorAt(0, lumiere(niveau_, 0.5));
    halo.setColorAt(1, lumiere(niveau_, 0));
    peintre.setBrush(halo);
    peintre.drawEllipse(kLentille, 150, 150);
}

void VueProjecteur::peindreLanterne(QPainter& peintre) const {
    const QColor metal("#565963");
    peintre.setPen(Qt::NoPen);
    peintre.setBrush(QColor("#3c3e46"));
    peintre.drawRect(QRectF(0, 8, kRepere.width(), 5)); // le pont d'accroche
    peintre.drawRect(QRectF(194, 6, 12, 14));           // le crochet
    peintre.setPen(QPen(QColor("#6a6d77"), 4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    peintre.setBrush(Qt::NoBrush);
    peintre.drawPolyline(QPolygonF{{{168, 44}, {168, 20}, {232, 20}, {232, 44}}}); // la lyre
    peintre.setPen(Qt::NoPen);
    peintre.setBrush(metal);
    peintre.drawRoundedRect(QRectF(174, 26, 52, 34), 7, 7);
    peintre.drawPolygon(QPolygonF{{{176, 54}, {224, 54}, {230, 66}, {170, 66}}});
    const auto eclairee = [this](int eteinte, int allumee) {
        return static_cast<int>(eteinte + (allumee - eteinte) * niveau_);
    };
    peintre.setBrush(QColor(eclairee(38, 255), eclairee(39, 250), eclairee(44, 240)));
    peintre.drawEllipse(kLentille, 27, 6);
}

} // namespace banc
