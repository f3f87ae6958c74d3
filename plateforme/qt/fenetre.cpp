#include "plateforme/qt/fenetre_qt.hpp"

#include "plateforme/qt/application_qt.hpp"
#include "plateforme/qt/icone.hpp"

#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>
#include <QtGui/QScreen>
#include <QtWidgets/QMenuBar>

#include <algorithm>

namespace plateforme {

FenetreQt::FenetreQt(const QString& titre, QSize taille)
    : QMainWindow(nullptr, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                               Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                               Qt::WindowCloseButtonHint),
      contenu_(new QWidget) {
    setWindowTitle(titre);
    setWindowIcon(iconeDuPaquet());
    setMenuBar(creerBarreDeMenus(this));
    contenu_->setFixedSize(taille);
    setCentralWidget(contenu_);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

// Qt donnerait le clavier au premier bouton venu : aucun ne l'a tant que Tab n'y mène pas.
bool FenetreQt::event(QEvent* evenement) {
    if (evenement->type() == QEvent::WindowActivate && focusWidget() == nullptr) {
        contenu_->setFocus();
    }
    return QMainWindow::event(evenement);
}

void FenetreQt::keyPressEvent(QKeyEvent* evenement) {
    const bool retour = evenement->key() == Qt::Key_Return || evenement->key() == Qt::Key_Enter;
    if (!retour) {
        QMainWindow::keyPressEvent(evenement);
    } else if (!evenement->isAutoRepeat()) { // tenue, elle courrait de page en page
        declencherParDefaut();
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
    QMainWindow::closeEvent(evenement);
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

namespace {

// Le banc du Mac simulé, ouvert à côté, dit ce qu'il lui faut de l'écran, à droite, en points.
QRect aGaucheDuBanc(const QRect& ecran) {
    const int banc = qEnvironmentVariableIntValue("LUMIVIA_PLACE_DU_BANC");
    return ecran.adjusted(0, 0, -std::max(banc, 0), 0);
}

} // namespace

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
        const QRect libre = aGaucheDuBanc(ecran->availableGeometry());
        const QPoint coin = libre.center() - QRect({}, fenetre.sizeHint()).center();
        fenetre.move(std::max(coin.x(), libre.left()), std::max(coin.y(), libre.top()));
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
