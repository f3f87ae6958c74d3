// Ce qu'une Vue désigne sous Qt, et les classes de vues de l'adaptateur. Fil principal.
#pragma once

#include "plateforme/vues.hpp"

#include <QtCore/QPointer>
#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

namespace plateforme {

struct VueNative {
    explicit VueNative(QWidget* vue) : widget(vue) {}

    VueNative(const VueNative&) = delete;
    VueNative& operator=(const VueNative&) = delete;

    // Plus tard, car la vue est peut-être le bouton dont l'action court encore.
    ~VueNative() {
        detacherSousVues();
        if (widget) {
            widget->deleteLater();
        }
    }

    // Une sous-vue que l'assistant tient encore ne doit pas finir avec sa pile.
    void detacherSousVues() {
        for (const Vue& vue : sousVues) {
            if (QWidget* enfant = vue.native().widget) {
                // Sans quoi le clavier sauterait au bouton voisin, comme par la touche Tab.
                enfant->clearFocus();
                enfant->setParent(nullptr);
            }
        }
        sousVues.clear();
    }

    QPointer<QWidget> widget;
    std::vector<Vue> sousVues; // ce que contient une pile
};

template <typename Classe>
Classe& widget(const Vue& vue) {
    return static_cast<Classe&>(*vue.native().widget);
}

inline QString texteQt(const std::string& texte) {
    return QString::fromStdString(texte);
}

inline constexpr double kTailleOrdinaire = 13;

// Police de l'assistant : une seule famille, puis les émojis en couleur.
QFont police(double taille, bool gras);

} // namespace plateforme
