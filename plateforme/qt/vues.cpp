#include "plateforme/posix/particularites.hpp"
#include "plateforme/qt/application_qt.hpp"
#include "plateforme/qt/image_qt.hpp"
#include "plateforme/qt/vue_native.hpp"

#include <QtCore/QHash>
#include <QtGui/QImageReader>

namespace plateforme {
namespace {

std::shared_ptr<VueNative> nouvelle(QWidget* vue) {
    return std::make_shared<VueNative>(vue);
}

} // namespace

QFont police(double taille, bool gras) {
    QFont fonte;
    // La dernière n'est là que pour ⓘ, que les deux premières n'ont pas.
    fonte.setFamilies({QStringLiteral("Inter"), QStringLiteral("Noto Color Emoji"),
                       QStringLiteral("Noto Sans Symbols")});
    fonte.setPixelSize(static_cast<int>(taille));
    fonte.setBold(gras);
    return fonte;
}

Vue espace(Orientation direction) {
    applicationQt();
    auto* vide = new QWidget;
    if (direction == Orientation::horizontale) {
        vide->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    } else {
        vide->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    }
    return Vue(nouvelle(vide));
}

MenuLocal::MenuLocal(const std::vector<std::string>& articles, std::function<void(int)> choix)
    : Vue([] {
          applicationQt();
          return nouvelle(new QComboBox);
      }()) {
    auto& menu = widget<QComboBox>(*this);
    menu.setFocusPolicy(Qt::TabFocus);
    for (const std::string& article : articles) {
        menu.addItem(texteQt(article));
    }
    menu.setMaxVisibleItems(menu.count());
    QObject::connect(&menu, &QComboBox::activated, std::move(choix));
}

int MenuLocal::index() const {
    return widget<QComboBox>(*this).currentIndex();
}

std::optional<VueImage> VueImage::lire(const std::string& chemin, const std::string& description) {
    applicationQt();
    static auto& lues =
        *new QHash<QString, QImage>; // décodées une seule fois, gardées jusqu'à la fin
    QImage& image = lues[texteQt(natif::cheminReel(chemin))];
    if (image.isNull()) {
        image = QImageReader(texteQt(natif::cheminReel(chemin))).read();
    }
    if (image.isNull()) {
        return std::nullopt;
    }
    return VueImage(nouvelle(new ImageQt(image, texteQt(description))));
}

TailleImage VueImage::tailleImage() const {
    const QSizeF taille = widget<ImageQt>(*this).taille();
    return {taille.width(), taille.height()};
}

void VueImage::imposerTaille(double largeur, double hauteur) const {
    widget<ImageQt>(*this).setFixedSize(qRound(largeur), qRound(hauteur));
}

} // namespace plateforme
