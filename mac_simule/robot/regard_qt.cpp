#include "mac_simule/robot/regard_qt.hpp"

#include "mac_simule/robot/regard.hpp"

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtGui/QAccessible>
#include <QtGui/QClipboard>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>

namespace robot {
namespace {

constexpr int kIntervalle = 2; // ms

QPointer<QPushButton> promis; // sera pressé quand le regard en cours sera fini

QWidget* page() {
    return fenetre() == nullptr ? nullptr : fenetre()->centralWidget();
}

QWidget* devant() {
    return alerteOuverte() ? QApplication::activeModalWidget() : page();
}

// Rien pour une vue qui n'en montre que d'autres.
std::optional<Vue> decrire(QWidget& ici, const QWidget& racine) {
    const QPoint coin = ici.mapTo(&racine, QPoint());
    const auto vue = [&](const char* genre, const std::string& reglages, const QString& lu) {
        const std::string texte = lu.toStdString();
        return Vue{genre, coin.x(), coin.y(), ici.width(), ici.height(), reglages, texte};
    };
    const std::string police =
        std::to_string(ici.font().pixelSize()) + " points" + (ici.font().bold() ? ", gras" : "");
    if (const auto* etiquette = qobject_cast<QLabel*>(&ici)) {
        const bool seconde = etiquette->foregroundRole() != QPalette::WindowText;
        // Une étiquette d'émojis peut porter du texte enrichi : ce nom est le texte nu.
        return vue("étiquette", police + (seconde ? ", secondaire" : ""), ici.accessibleName());
    }
    if (const auto* bouton = qobject_cast<QPushButton*>(&ici)) {
        return vue("bouton", police + (bouton->isDefault() ? ", par défaut" : ""), bouton->text());
    }
    if (const auto* menu = qobject_cast<QComboBox*>(&ici)) {
        QStringList articles;
        for (int i = 0; i < menu->count(); ++i) {
            articles << menu->itemText(i);
        }
        return vue("menu", menu->currentText().toStdString(), articles.join(u'\n'));
    }
    // Telle qu'une aide à l'accessibilité la présente.
    if (QAccessible::queryAccessibleInterface(&ici)->role() == QAccessible::Graphic) {
        return vue("image", {}, ici.accessibleName());
    }
    return std::nullopt;
}

class Guet : public QObject {
public:
    explicit Guet(std::function<void()> regard) : regard_(std::move(regard)) {
        startTimer(kIntervalle);
        QCoreApplication::instance()->installEventFilter(this);
    }

    bool eventFilter(QObject* objet, QEvent* evenement) override {
        // La première page est en place quand la fenêtre paraît.
        if (evenement->type() == QEvent::LayoutRequest ||
            (evenement->type() == QEvent::Show && objet == fenetre())) {
            QTimer::singleShot(0, this, [this] { timerEvent(nullptr); });
        }
        return false;
    }

private:
    void timerEvent(QTimerEvent* /*evenement*/) override {
        if (promis == nullptr) {
            regard_();
        }
    }

    std::function<void()> regard_;
};

} // namespace

QMainWindow* fenetre() {
    for (QWidget* vue : QApplication::topLevelWidgets()) {
        if (auto* trouvee = qobject_cast<QMainWindow*>(vue); trouvee && trouvee->isVisible()) {
            return trouvee;
        }
    }
    return nullptr;
}

QPushButton* bouton(const std::string& titre) {
    const QWidget* ici = devant();
    for (auto* vu : ici == nullptr ? QList<QPushButton*>() : ici->findChildren<QPushButton*>()) {
        if (vu->isVisible() &&
            (titre.empty() ? vu->isDefault() : vu->text().toStdString() == titre)) {
            return vu;
        }
    }
    return nullptr;
}

void traiter() {
    bool actif = true;
    while (actif) {
        actif = QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

std::string titre() {
    const auto* premiere = page() == nullptr ? nullptr : page()->findChild<QLabel*>();
    return premiere == nullptr ? "" : premiere->accessibleName().toStdString();
}

bool alerteOuverte() {
    return QApplication::activeModalWidget() != nullptr;
}

std::vector<Vue> scene() {
    const QWidget& racine = *devant();
    const std::string barre = racine.window()->windowTitle().toStdString();
    std::vector<Vue> vues{{"fenêtre", 0, 0, racine.width(), racine.height(), {}, barre}};
    for (QWidget* ici : racine.findChildren<QWidget*>()) {
        if (const auto vue = ici->isVisible() ? decrire(*ici, racine) : std::nullopt) {
            vues.push_back(*vue);
        }
    }
    return vues;
}

bool presser(const std::string& titre) {
    promis = bouton(titre);
    if (promis != nullptr) {
        // S'il ouvre une alerte, les regards continuent dans sa boucle.
        QTimer::singleShot(0, promis, [] { std::exchange(promis, nullptr)->click(); });
    }
    return promis != nullptr;
}

bool choisir(const std::string& article) {
    auto* menu = page()->findChild<QComboBox*>();
    const int rang = menu == nullptr ? -1 : menu->findText(QString::fromStdString(article));
    if (rang >= 0) {
        menu->setCurrentIndex(rang);
        emit menu->activated(rang);
    }
    return rang >= 0;
}

void fermer() {
    fenetre()->close();
}

std::string pressePapiers() {
    return QGuiApplication::clipboard()->text().toStdString();
}

void surveiller(std::function<void()> regard) {
    (new Guet(std::move(regard)))->setParent(QCoreApplication::instance());
}

void finir(int code) {
    QCoreApplication::exit(code);
}

} // namespace robot
