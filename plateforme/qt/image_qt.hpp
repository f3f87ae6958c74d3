// La vue d'une image sous Qt. Fil principal.
#pragma once

#include <QtGui/QImage>
#include <QtGui/QPixmap>
#include <QtWidgets/QWidget>

namespace plateforme {

// Une image nette à toutes les échelles : elle est réduite au moment d'être peinte, une fois par
// taille. Les aides à l'accessibilité la voient comme une image, et lisent sa description.
class ImageQt : public QWidget {
public:
    ImageQt(QImage image, const QString& description);

    QSizeF taille() const { return image_.size(); }

protected:
    void paintEvent(QPaintEvent* evenement) override;

private:
    QPixmap reduite(QSize pixels) const;

    QImage image_;
};

} // namespace plateforme
