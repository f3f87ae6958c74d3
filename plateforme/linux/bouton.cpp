#include "plateforme/linux/apparence.hpp"
#include "plateforme/linux/application_qt.hpp"
#include "plateforme/linux/style.hpp"
#include "plateforme/linux/vue_native.hpp"

#include <QtGui/QFocusEvent>

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

// Bouton arrondi ; celui que la touche Retour déclenche est rempli de la couleur d'accent.
class BoutonQt : public QPushButton {
public:
    explicit BoutonQt(const QString& titre) : QPushButton(titre) {
        setAutoDefault(false);
        setFocusPolicy(Qt::StrongFocus);
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
    // L'anneau ne se montre qu'à qui se déplace au clavier.
    void focusInEvent(QFocusEvent* evenement) override {
        clavier_ = evenement->reason() == Qt::TabFocusReason ||
                   evenement->reason() == Qt::BacktabFocusReason;
        QPushButton::focusInEvent(evenement);
    }

    void paintEvent(QPaintEvent*) override {
        QPainter peintre(this);
        peintre.setRenderHint(QPainter::Antialiasing);
        const CouleursBouton couleurs = couleursBouton(isDefault(), isDown());
        peindreBouton(peintre, rect(), couleurs, hasFocus() && clavier_);
        peintre.setPen(couleurs.texte);
        peintre.drawText(rect(), Qt::AlignCenter, text());
    }

private:
    Gabarit gabarit_ = kOrdinaire;
    bool clavier_ = false;
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
