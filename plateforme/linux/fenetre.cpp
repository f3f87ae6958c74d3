#include "plateforme/linux/fenetre_qt.hpp"

#include "plateforme/linux/application_qt.hpp"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtGui/QShortcut>
#include <QtWidgets/QMenuBar>

#include <algorithm>

namespace plateforme {

FenetreQt::FenetreQt(const QString& titre, QSize taille)
    : QWidget(nullptr, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                           Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                           Qt::WindowCloseButtonHint) {
    setWindowTitle(titre);
    auto* colonne = new QVBoxLayout(this);
    colonne->setContentsMargins(0, 0, 0, 0);
    colonne->setSpacing(0);
    colonne->setSizeConstraint(QLayout::SetFixedSize);
    colonne->setMenuBar(creerBarreDeMenus(this));
    contenu_ = new QWidget(this);
    contenu_->setFixedSize(taille);
    colonne->addWidget(contenu_);
    for (const Qt::Key touche : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* raccourci = new QShortcut(touche, this);
        QObject::connect(raccourci, &QShortcut::activated, [this] { declencherParDefaut(); });
    }
}

void FenetreQt::declencherParDefaut() {
    for (QPushButton* bouton : findChildren<QPushButton*>()) {
        if (bouton->isDefault() && bouton->isVisible()) {
            bouton->click();
            return;
        }
    }
}

void FenetreQt::closeEvent(QCloseEvent* evenement) {
    if (surFermeture) {
        surFermeture();
    }
    QWidget::closeEvent(evenement);
}

bool FenetreQt::focusNextPrevChild(bool suivant) {
    QList<QWidget*> arrets;
    for (QWidget* vue : contenu_->findChildren<QWidget*>()) {
        if (vue->isVisible() && vue->isEnabled() && (vue->focusPolicy() & Qt::TabFocus) != 0) {
            arrets.push_back(vue);
        }
    }
    if (arrets.isEmpty()) {
        return false;
    }
    const auto place = [this](const QWidget* vue) { return vue->mapTo(this, QPoint()); };
    std::sort(arrets.begin(), arrets.end(), [&place](const QWidget* a, const QWidget* b) {
        return std::pair(place(a).y(), place(a).x()) < std::pair(place(b).y(), place(b).x());
    });
    const qsizetype ici = arrets.indexOf(QApplication::focusWidget());
    const qsizetype pas = suivant ? ici + 1 : (ici < 0 ? arrets.size() : ici) - 1;
    arrets[(pas + arrets.size()) % arrets.size()]->setFocus(suivant ? Qt::TabFocusReason
                                                                    : Qt::BacktabFocusReason);
    return true;
}

struct Fenetre::Native {
    FenetreQt* fenetre; // gardée jusqu'à la fin du processus
};

Fenetre::Fenetre(const std::string& titre, double largeur, double hauteur) {
    applicationQt();
    const QSize taille(static_cast<int>(largeur), static_cast<int>(hauteur));
    native_ = std::shared_ptr<Native>(new Native{new FenetreQt(texteQt(titre), taille)},
                                      [](Native* native) {
                                          delete native->fenetre;
                                          delete native;
                                      });
}

void Fenetre::poser(const Pile& pile, const std::vector<Vue>& pleineLargeur, double retrait) {
    QWidget* contenu = native_->fenetre->contenu();
    auto* colonne = new QVBoxLayout(contenu);
    colonne->setContentsMargins(0, 0, 0, 0);
    colonne->addWidget(&widget<QWidget>(pile));
    native_->fenetre->garder(pile);
    for (const Vue& vue : pleineLargeur) {
        widget<QWidget>(vue).setFixedWidth(contenu->width() - static_cast<int>(retrait));
    }
}

void Fenetre::centrer() {
    FenetreQt& fenetre = *native_->fenetre;
    if (const QScreen* ecran = QGuiApplication::primaryScreen()) {
        const QRect libre = ecran->availableGeometry();
        fenetre.move(libre.center() - QRect({}, fenetre.sizeHint()).center());
    }
}

void Fenetre::montrer() {
    native_->fenetre->show();
    native_->fenetre->raise();
    native_->fenetre->activateWindow();
}

void Fenetre::surFermeture(std::function<void()> action) {
    native_->fenetre->surFermeture = std::move(action);
}

} // namespace plateforme
