#include "plateforme/linux/apparence.hpp"
#include "plateforme/linux/application_qt.hpp"
#include "plateforme/linux/vue_native.hpp"
#include "plateforme/posix/natif.hpp"

#include <QtGui/QImageReader>
#include <QtGui/QPainter>

#include <algorithm>

namespace plateforme {
namespace {

constexpr double kTailleOrdinaire = 13;
constexpr QChar kSelecteurEmoji(0xFE0F);

// La police de base dessine elle-même ⚠ au trait : un caractère suivi du sélecteur d'émoji est donc
// confié explicitement à la police en couleur.
QString texteRiche(const QString& texte) {
    QString riche;
    for (qsizetype i = 0; i < texte.size(); ++i) {
        const bool emoji = i + 1 < texte.size() && texte[i + 1] == kSelecteurEmoji;
        riche += emoji ? QStringLiteral("<span style=\"font-family:'Noto Color Emoji'\">%1</span>")
                             .arg(QString(texte[i]) + kSelecteurEmoji)
                       : QString(texte[i]).toHtmlEscaped();
        i += emoji ? 1 : 0;
    }
    return QStringLiteral("<div style=\"white-space:pre-wrap\">%1</div>").arg(riche);
}

// Une image nette à toutes les échelles : elle est réduite au moment d'être peinte.
class ImageQt : public QWidget {
public:
    explicit ImageQt(QImage image) : image_(std::move(image)) {}

    QSizeF taille() const { return image_.size(); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter peintre(this);
        const QSizeF place = size();
        const QSizeF tenue = taille().scaled(place, Qt::KeepAspectRatio);
        const QPointF coin((place.width() - tenue.width()) / 2,
                           (place.height() - tenue.height()) / 2);
        const qreal echelle = devicePixelRatioF();
        QImage reduite = image_.scaled((tenue * echelle).toSize(), Qt::IgnoreAspectRatio,
                                       Qt::SmoothTransformation);
        reduite.setDevicePixelRatio(echelle);
        peintre.drawImage(coin, reduite);
    }

private:
    QImage image_;
};

// Donne à une étiquette qui va à la ligne sa taille exacte. Qt saurait la déduire de la largeur,
// mais pas à travers des piles emboîtées : les dernières lignes y seraient coupées.
void ajusterHauteur(QLabel& etiquette) {
    if (etiquette.wordWrap() && etiquette.minimumWidth() == etiquette.maximumWidth()) {
        QSizePolicy place = etiquette.sizePolicy();
        place.setHeightForWidth(false);
        etiquette.setSizePolicy(place);
        etiquette.setMinimumHeight(0); // la hauteur calculée n'est jamais sous ce minimum
        etiquette.setFixedHeight(std::max(0, etiquette.heightForWidth(etiquette.minimumWidth())));
    }
}

std::shared_ptr<VueNative> nouvelle(QWidget* vue) {
    return std::make_shared<VueNative>(vue);
}

QLabel* nouvelleEtiquette(const std::string& texte) {
    applicationQt();
    auto* etiquette = new QLabel;
    etiquette->setTextFormat(Qt::PlainText);
    etiquette->setFont(police(kTailleOrdinaire, false));
    etiquette->setText(texteQt(texte));
    return etiquette;
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

Etiquette Etiquette::simple(const std::string& texte) {
    return Etiquette(nouvelle(nouvelleEtiquette(texte)));
}

Etiquette Etiquette::multiligne(const std::string& texte) {
    QLabel* etiquette = nouvelleEtiquette(texte);
    etiquette->setWordWrap(true);
    etiquette->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return Etiquette(nouvelle(etiquette));
}

void Etiquette::setTexte(const std::string& texte) const {
    auto& etiquette = widget<QLabel>(*this);
    const QString nu = texteQt(texte);
    const bool riche = nu.contains(kSelecteurEmoji);
    etiquette.setTextFormat(riche ? Qt::RichText : Qt::PlainText);
    etiquette.setText(riche ? texteRiche(nu) : nu);
    etiquette.setAccessibleName(nu);
    ajusterHauteur(etiquette);
}

void Etiquette::setPolice(double taille, bool gras) const {
    widget<QLabel>(*this).setFont(police(taille, gras));
    ajusterHauteur(widget<QLabel>(*this));
}

void Etiquette::setCouleurSecondaire() const {
    widget<QLabel>(*this).setForegroundRole(kRoleTexteSecondaire);
}

void Etiquette::setLargeurMaximale(double largeur) const {
    widget<QLabel>(*this).setFixedWidth(static_cast<int>(largeur));
    ajusterHauteur(widget<QLabel>(*this));
}

MenuLocal::MenuLocal(const std::vector<std::string>& articles, std::function<void(int)> choix)
    : Vue([] {
          applicationQt();
          return nouvelle(new QComboBox);
      }()) {
    auto& menu = widget<QComboBox>(*this);
    menu.setFont(police(kTailleOrdinaire, false));
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
    QImageReader lecteur(texteQt(natif::cheminReel(chemin)));
    QImage image = lecteur.read();
    if (image.isNull()) {
        return std::nullopt;
    }
    auto* vue = new ImageQt(std::move(image));
    vue->setAccessibleName(texteQt(description));
    return VueImage(nouvelle(vue));
}

TailleImage VueImage::tailleImage() const {
    const QSizeF taille = widget<ImageQt>(*this).taille();
    return {taille.width(), taille.height()};
}

void VueImage::imposerTaille(double largeur, double hauteur) const {
    widget<ImageQt>(*this).setFixedSize(qRound(largeur), qRound(hauteur));
}

} // namespace plateforme
