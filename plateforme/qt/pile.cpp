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

// Une vue garde sa taille dans une pile verticale, et s'aligne par son milieu dans une horizontale,
// sauf quand elle prend toute la place libre.
Qt::Alignment alignement(const QBoxLayout& pile, const QWidget& vue) {
    const bool verticale = pile.direction() == QBoxLayout::TopToBottom;
    if (vue.sizePolicy().horizontalPolicy() == QSizePolicy::Expanding) {
        return {};
    }
    return verticale ? Qt::AlignLeft : Qt::AlignVCenter;
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
    disposition(*this).setAlignment(Qt::AlignLeft);
}

void Pile::alignerEnHaut() const {
    widget<QWidget>(*this).setProperty("enHaut", true);
}

void Pile::setMarges(double haut, double gauche, double bas, double droite) const {
    disposition(*this).setContentsMargins(static_cast<int>(gauche), static_cast<int>(haut),
                                          static_cast<int>(droite), static_cast<int>(bas));
}

void Pile::ajouter(const Vue& vue) const {
    QBoxLayout& boite = disposition(*this);
    QWidget& nouvelle = widget<QWidget>(vue);
    const bool enHaut = widget<QWidget>(*this).property("enHaut").toBool();
    boite.addWidget(&nouvelle, 0, enHaut ? Qt::AlignTop : alignement(boite, nouvelle));
    native().sousVues.push_back(vue);
    nouvelle.show();
}

void Pile::vider() const {
    native().detacherSousVues();
}

} // namespace plateforme
