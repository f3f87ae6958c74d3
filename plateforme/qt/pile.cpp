#include "plateforme/qt/application_qt.hpp"
#include "plateforme/qt/vue_native.hpp"

namespace plateforme {
namespace {

QBoxLayout& disposition(const Vue& pile) {
    return static_cast<QBoxLayout&>(*widget<QWidget>(pile).layout());
}

QBoxLayout::Direction direction(Orientation orientation) {
    return orientation == Orientation::verticale ? QBoxLayout::TopToBottom
                                                 : QBoxLayout::LeftToRight;
}

// Comme celle d'un Mac, une pile garde à ses vues leur taille et les aligne par leur milieu, sauf
// celle qui prend toute la place libre, ou quand un bord est demandé.
Qt::Alignment alignement(const QBoxLayout& pile, const QWidget& vue) {
    const bool verticale = pile.direction() == QBoxLayout::TopToBottom;
    if (vue.sizePolicy().horizontalPolicy() == QSizePolicy::Expanding) {
        return {};
    }
    const bool auBord = pile.parentWidget()->property("auBord").toBool();
    return verticale ? (auBord ? Qt::AlignLeft : Qt::AlignHCenter)
                     : (auBord ? Qt::AlignTop : Qt::AlignVCenter);
}

// Range aussi les vues qui y sont déjà.
void alignerAuBord(const Vue& pile) {
    widget<QWidget>(pile).setProperty("auBord", true);
    QBoxLayout& boite = disposition(pile);
    for (int rang = 0; rang < boite.count(); ++rang) {
        QLayoutItem& place = *boite.itemAt(rang);
        place.setAlignment(alignement(boite, *place.widget()));
    }
}

} // namespace

Pile::Pile(Orientation orientation)
    : Vue([] {
          applicationQt();
          return std::make_shared<VueNative>(new QWidget);
      }()) {
    auto* boite = new QBoxLayout(direction(orientation), &widget<QWidget>(*this));
    boite->setContentsMargins(0, 0, 0, 0);
    boite->setSpacing(8); // l'espacement ordinaire d'une pile
}

void Pile::setEspacement(double espacement) const {
    disposition(*this).setSpacing(static_cast<int>(espacement));
}

void Pile::alignerAuDebut() const {
    alignerAuBord(*this);
}

void Pile::alignerEnHaut() const {
    alignerAuBord(*this);
}

void Pile::setMarges(double haut, double gauche, double bas, double droite) const {
    disposition(*this).setContentsMargins(static_cast<int>(gauche), static_cast<int>(haut),
                                          static_cast<int>(droite), static_cast<int>(bas));
}

void Pile::ajouter(const Vue& vue) const {
    QBoxLayout& boite = disposition(*this);
    QWidget& nouvelle = widget<QWidget>(vue);
    boite.addWidget(&nouvelle, 0, alignement(boite, nouvelle));
    native().sousVues.push_back(vue);
    nouvelle.show();
}

void Pile::vider() const {
    native().detacherSousVues();
}

} // namespace plateforme
