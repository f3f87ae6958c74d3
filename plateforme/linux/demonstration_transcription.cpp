#include "plateforme/linux/demonstration_transcription.hpp"

#include "plateforme/linux/apparence.hpp"
#include "plateforme/linux/image_qt.hpp"
#include "plateforme/linux/vue_native.hpp"

#include <QtGui/QAccessible>

#include <algorithm>

namespace plateforme {
namespace {

// Une version de police à l'autre, un texte gagne ou perd un point.
constexpr int kArrondi = 4;

int arrondir(int points) {
    return qRound(static_cast<double>(points) / kArrondi) * kArrondi;
}

QString place(const QWidget& vue, const QWidget& racine) {
    const QPoint coin = vue.mapTo(&racine, QPoint());
    return QStringLiteral("%1,%2 %3×%4")
        .arg(arrondir(coin.x()))
        .arg(arrondir(coin.y()))
        .arg(arrondir(vue.width()))
        .arg(arrondir(vue.height()));
}

QString police(const QWidget& vue) {
    return QStringLiteral("%1 points%2")
        .arg(vue.font().pixelSize())
        .arg(vue.font().bold() ? QStringLiteral(", gras") : QString());
}

QStringList articles(const QComboBox& menu) {
    QStringList lus;
    for (int i = 0; i < menu.count(); ++i) {
        lus << menu.itemText(i);
    }
    return lus;
}

struct Ligne {
    QString genre;
    QString reglages;
    QString texte;
};

// Rien pour une vue qui n'en montre que d'autres.
Ligne decrire(const QWidget& vue) {
    if (const auto* etiquette = qobject_cast<const QLabel*>(&vue)) {
        const bool seconde = etiquette->foregroundRole() == kRoleTexteSecondaire;
        return {QStringLiteral("étiquette"),
                police(vue) + (seconde ? QStringLiteral(", secondaire") : QString()),
                etiquette->accessibleName()};
    }
    if (const auto* bouton = qobject_cast<const QPushButton*>(&vue)) {
        return {QStringLiteral("bouton"),
                police(vue) + (bouton->isDefault() ? QStringLiteral(", par défaut") : QString()),
                bouton->text()};
    }
    if (const auto* menu = qobject_cast<const QComboBox*>(&vue)) {
        return {QStringLiteral("menu"), menu->currentText(), articles(*menu).join(u'\n')};
    }
    if (dynamic_cast<const ImageQt*>(&vue) != nullptr) {
        // Telle qu'une aide à l'accessibilité la présente.
        const auto* lue = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(&vue));
        return {lue->role() == QAccessible::Graphic ? QStringLiteral("image")
                                                    : QStringLiteral("vue"),
                {},
                lue->text(QAccessible::Name)};
    }
    return {};
}

bool vientAvant(const QWidget* a, const QWidget* b, const QWidget& racine) {
    const QPoint placeA = a->mapTo(&racine, a->rect().center());
    const QPoint placeB = b->mapTo(&racine, b->rect().center());
    return std::pair(arrondir(placeA.y()), placeA.x()) <
           std::pair(arrondir(placeB.y()), placeB.x());
}

} // namespace

QString transcrire(const QWidget& racine) {
    QList<const QWidget*> vues;
    for (const QWidget* vue : racine.findChildren<QWidget*>()) {
        if (vue->isVisible()) {
            vues << vue;
        }
    }
    std::stable_sort(vues.begin(), vues.end(), [&racine](const QWidget* a, const QWidget* b) {
        return vientAvant(a, b, racine);
    });
    QString texte = QStringLiteral("fenêtre %1×%2\n    %3\n")
                        .arg(arrondir(racine.width()))
                        .arg(arrondir(racine.height()))
                        .arg(racine.window()->windowTitle());
    for (const QWidget* vue : vues) {
        const Ligne ligne = decrire(*vue);
        if (!ligne.genre.isEmpty()) {
            texte += QStringLiteral("%1 %2 (%3)\n    %4\n")
                         .arg(ligne.genre, place(*vue, racine), ligne.reglages,
                              QString(ligne.texte).replace(u'\n', QStringLiteral("\n    ")));
        }
    }
    return texte;
}

} // namespace plateforme
