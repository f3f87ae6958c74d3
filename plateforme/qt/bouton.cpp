#include "plateforme/posix/suite_de_clics.hpp"
#include "plateforme/qt/apparence.hpp"
#include "plateforme/qt/application_qt.hpp"
#include "plateforme/qt/style.hpp"
#include "plateforme/qt/vue_native.hpp"

#include <QtGui/QMouseEvent>
#include <QtGui/QStyleHints>

namespace plateforme {
namespace {

struct Gabarit {
    int taillePolice;
    int hauteur;
    int bord;
    int largeurMinimale;
};

constexpr Gabarit kOrdinaire{13, 30, 16, 84};
constexpr Gabarit kPetit{11, 23, 10, 0};

// Le rang d'un appui parmi ceux qui se suivent de près au même endroit, à partir de 1 : Qt s'arrête
// à deux.
long rangDeLAppui(const QMouseEvent& appui) {
    static ulong instant = 0;
    static QPointF place;
    static long rang = 0;
    const QStyleHints& reglages = *QGuiApplication::styleHints();
    const bool suit =
        appui.timestamp() - instant < static_cast<ulong>(reglages.mouseDoubleClickInterval()) &&
        (appui.globalPosition() - place).manhattanLength() <= reglages.mouseDoubleClickDistance();
    instant = static_cast<ulong>(appui.timestamp());
    place = appui.globalPosition();
    rang = suit ? rang + 1 : 1;
    return rang;
}

// Bouton arrondi ; celui que la touche Retour déclenche est rempli de la couleur d'accent.
class BoutonQt : public QPushButton {
public:
    explicit BoutonQt(const QString& titre) : QPushButton(titre) {
        setAutoDefault(false);
        setFocusPolicy(Qt::TabFocus);
        setGabarit(kOrdinaire);
    }

    void setGabarit(const Gabarit& gabarit) {
        gabarit_ = gabarit;
        setFont(police(gabarit.taillePolice, false));
    }

    QSize sizeHint() const override {
        const int texte = fontMetrics().horizontalAdvance(text());
        return {std::max(texte + 2 * gabarit_.bord, gabarit_.largeurMinimale), gabarit_.hauteur};
    }

    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void mousePressEvent(QMouseEvent* evenement) override {
        if (clics_.accepte(rangDeLAppui(*evenement))) {
            QPushButton::mousePressEvent(evenement);
        }
    }

    // Retour va à la fenêtre, même quand ce bouton a le clavier et que c'est lui qui y répond.
    void keyPressEvent(QKeyEvent* evenement) override {
        if (evenement->key() == Qt::Key_Return || evenement->key() == Qt::Key_Enter) {
            evenement->ignore();
        } else {
            QPushButton::keyPressEvent(evenement);
        }
    }

    void paintEvent(QPaintEvent*) override {
        QPainter peintre(this);
        peintre.setRenderHint(QPainter::Antialiasing);
        const CouleursBouton couleurs = couleursBouton(isDefault(), isDown());
        peindreBouton(peintre, rect(), couleurs, porteLAnneau(*this));
        peintre.setPen(couleurs.texte);
        peintre.drawText(rect(), Qt::AlignCenter, text());
    }

private:
    Gabarit gabarit_ = kOrdinaire;
    SuiteDeClics clics_;
};

} // namespace

Bouton::Bouton(const std::string& titre, std::function<void()> action)
    : Vue([&titre] {
          applicationQt();
          return std::make_shared<VueNative>(new BoutonQt(texteQt(titre)));
      }()) {
    QObject::connect(&widget<BoutonQt>(*this), &QPushButton::clicked,
                     [action = std::move(action)] { action(); });
}

void Bouton::setParDefaut() const {
    widget<BoutonQt>(*this).setDefault(true);
}

void Bouton::setPetit() const {
    widget<BoutonQt>(*this).setGabarit(kPetit);
}

} // namespace plateforme
