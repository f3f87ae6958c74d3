#include "plateforme/qt/image_qt.hpp"

#include <QtGui/QAccessible>
#include <QtGui/QPainter>
#include <QtGui/QPixmapCache>
#include <QtWidgets/QAccessibleWidget>

namespace plateforme {
namespace {

// Qt demande à chaque fabrique, la dernière installée d'abord, avant la sienne.
QAccessibleInterface* decrire(const QString&, QObject* objet) {
    auto* image = dynamic_cast<ImageQt*>(objet);
    return image == nullptr ? nullptr : new QAccessibleWidget(image, QAccessible::Graphic);
}

void installerLaFabrique() {
    static const bool installee = [] {
        QAccessible::installFactory(decrire);
        return true;
    }();
    static_cast<void>(installee);
}

} // namespace

ImageQt::ImageQt(QImage image, const QString& description) : image_(std::move(image)) {
    installerLaFabrique();
    setAccessibleName(description);
}

void ImageQt::paintEvent(QPaintEvent*) {
    QPainter peintre(this);
    const QSizeF place = size();
    const QSizeF tenue = taille().scaled(place, Qt::KeepAspectRatio);
    const QPointF coin((place.width() - tenue.width()) / 2, (place.height() - tenue.height()) / 2);
    peintre.drawPixmap(coin, reduite((tenue * devicePixelRatioF()).toSize()));
}

QPixmap ImageQt::reduite(QSize pixels) const {
    const QString cle = QStringLiteral("image %1 %2x%3")
                            .arg(image_.cacheKey())
                            .arg(pixels.width())
                            .arg(pixels.height());
    QPixmap copie;
    if (!QPixmapCache::find(cle, &copie)) {
        copie = QPixmap::fromImage(
            image_.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        QPixmapCache::insert(cle, copie);
    }
    copie.setDevicePixelRatio(devicePixelRatioF());
    return copie;
}

} // namespace plateforme
