#include "mac_simule/robot/regard.hpp"
#include "mac_simule/robot/regard_qt.hpp"

#include <QtGui/QPainter>
#include <QtWidgets/QApplication>

namespace robot {
namespace {

constexpr int kPilesEmboitees = 8; // davantage que la fenêtre n'en emboîte
constexpr double kRayon = 12;
constexpr int kOmbre = 14;

// Dans le cadre qu'un gestionnaire de fenêtres lui donnerait : coins arrondis, ombre, filet.
void poserAlerte(QPixmap& page, const QPixmap& alerte) {
    const QSizeF taille = alerte.deviceIndependentSize();
    const QSizeF marge = (page.deviceIndependentSize() - taille) / 2;
    const QRectF place(QPointF(qRound(marge.width()), qRound(marge.height())), taille);
    const bool sombre = QGuiApplication::palette().color(QPalette::Window).lightness() < 128;
    QPainter peintre(&page);
    peintre.setRenderHint(QPainter::Antialiasing);
    peintre.fillRect(QRectF({}, page.deviceIndependentSize()), QColor(0, 0, 0, 60));
    peintre.setPen(Qt::NoPen);
    peintre.setBrush(QColor(0, 0, 0, 6));
    for (int bord = kOmbre; bord > 0; --bord) {
        peintre.drawRoundedRect(place.adjusted(-bord, 4 - bord, bord, 4 + bord), kRayon + bord,
                                kRayon + bord);
    }
    peintre.setBrushOrigin(place.topLeft());
    peintre.setBrush(alerte);
    peintre.drawRoundedRect(place, kRayon, kRayon);
    peintre.setPen(QColor(sombre ? "#5c5c60" : "#c4c4c8"));
    peintre.setBrush(Qt::NoBrush);
    peintre.drawRoundedRect(place.adjusted(0.5, 0.5, -0.5, -0.5), kRayon, kRayon);
}

} // namespace

bool photographier(const std::string& chemin) {
    // Une disposition remonte de pile en pile, un évènement à la fois ; la fenêtre ne se peint
    // qu'après le dernier, l'image se prend donc aussi après lui.
    for (int etage = 0; etage < kPilesEmboitees; ++etage) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    }
    QPixmap image = fenetre()->centralWidget()->grab();
    if (QWidget* alerte = QApplication::activeModalWidget()) {
        poserAlerte(image, alerte->grab());
    }
    return image.save(QString::fromStdString(chemin));
}

} // namespace robot
