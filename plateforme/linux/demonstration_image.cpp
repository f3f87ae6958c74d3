#include "plateforme/linux/demonstration_image.hpp"

#include "plateforme/linux/apparence.hpp"
#include "plateforme/linux/fenetre_qt.hpp"

#include <QtCore/QCoreApplication>
#include <QtGui/QPainter>

namespace plateforme {
namespace {

constexpr int kPilesEmboitees = 8; // davantage que la fenêtre n'en emboîte
constexpr double kRayonAlerte = 12;
constexpr int kOmbre = 14;

// Le cadre qu'un gestionnaire de fenêtres donnerait à l'alerte : coins arrondis, ombre, filet.
QPixmap arrondie(const QPixmap& alerte) {
    QPixmap coins(alerte.size());
    coins.setDevicePixelRatio(alerte.devicePixelRatio());
    coins.fill(Qt::transparent);
    QPainter peintre(&coins);
    peintre.setRenderHint(QPainter::Antialiasing);
    peintre.setPen(Qt::NoPen);
    peintre.setBrush(Qt::black);
    peintre.drawRoundedRect(QRectF({}, alerte.deviceIndependentSize()), kRayonAlerte, kRayonAlerte);
    peintre.setCompositionMode(QPainter::CompositionMode_SourceIn);
    peintre.drawPixmap(0, 0, alerte);
    return coins;
}

void poserAlerte(QPixmap& page, const QPixmap& alerte) {
    const QSizeF taille = alerte.deviceIndependentSize();
    const QSizeF marge = (page.deviceIndependentSize() - taille) / 2;
    const QRectF place(QPointF(qRound(marge.width()), qRound(marge.height())), taille);
    QPainter peintre(&page);
    peintre.setRenderHint(QPainter::Antialiasing);
    peintre.fillRect(QRectF({}, page.deviceIndependentSize()), QColor(0, 0, 0, 60));
    peintre.setPen(Qt::NoPen);
    peintre.setBrush(QColor(0, 0, 0, 6));
    for (int bord = kOmbre; bord > 0; --bord) {
        peintre.drawRoundedRect(place.adjusted(-bord, 4 - bord, bord, 4 + bord),
                                kRayonAlerte + bord, kRayonAlerte + bord);
    }
    peintre.drawPixmap(place.topLeft(), arrondie(alerte));
    peintre.setPen(couleursBouton(false, false).bord);
    peintre.setBrush(Qt::NoBrush);
    peintre.drawRoundedRect(place.adjusted(0.5, 0.5, -0.5, -0.5), kRayonAlerte, kRayonAlerte);
}

} // namespace

QPixmap imageDeLaFenetre(FenetreQt& fenetre, QWidget* alerte) {
    // Une disposition remonte de pile en pile, un évènement à la fois ; la fenêtre ne se peint
    // qu'après le dernier, l'image se prend donc aussi après lui.
    for (int etage = 0; etage < kPilesEmboitees; ++etage) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    }
    QPixmap image = fenetre.contenu()->grab();
    if (alerte != nullptr) {
        poserAlerte(image, alerte->grab());
    }
    return image;
}

} // namespace plateforme
