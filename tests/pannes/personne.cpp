// La personne simulée des essais de pannes : préchargée dans le véritable assistant, elle presse
// les boutons par leurs titres, sans attendre, et dit sur la sortie standard ce qu'elle voit.
//
// LUMIVIA_GESTES : une ligne par page, son titre puis les gestes, séparés par des tabulations. Un
// geste est un bouton, « fermer » (la fenêtre), ou « @FAIT=TEXTE » qui change un fait du Mac dès le
// geste précédent. À la deuxième visite d'une page, sa deuxième ligne sert, s'il y en a une.
#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtGui/QClipboard>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

#include <algorithm>

#include <cstdio>
#include <unistd.h>

namespace {

constexpr qint64 kPatience = 20'000; // ms sans rien de neuf

void dire(const char* genre, QString texte) {
    texte.replace(u'\\', QLatin1String("\\\\")).replace(u'\n', QLatin1String("\\n"));
    std::printf("%s\t%s\n", genre, texte.toUtf8().constData());
    std::fflush(stdout);
}

QString textes(const QWidget& fenetre) {
    QStringList lus;
    for (const QLabel* etiquette : fenetre.findChildren<QLabel*>()) {
        lus += etiquette->text();
    }
    return lus.join(u' ');
}

void changerLeMac(const QString& fait) {
    QFile fichier(qEnvironmentVariable("LUMIVIA_MAC") + "/etat/" + fait.section(u'=', 0, 0));
    if (fichier.open(QIODevice::WriteOnly)) {
        const QString texte = fait.section(u'=', 1) + u'\n';
        fichier.write(QString(texte).replace(QLatin1String("\\t"), QLatin1String("\t")).toUtf8());
    }
}

class Personne : public QObject {
public:
    Personne() : lignes_(qEnvironmentVariable("LUMIVIA_GESTES").split(u'\n')) {
        QObject::connect(&regard_, &QTimer::timeout, this, [this] { regarder(); });
        regard_.start(2);
        calme_.start();
    }

private:
    void regarder() {
        if (calme_.elapsed() > kPatience) {
            dire("bloque", page_);
            ::_exit(3);
        }
        QWidget* fenetre = QApplication::activeModalWidget();
        if (fenetre != nullptr) {
            fermerLAlerte(*fenetre);
            return;
        }
        for (QWidget* autre : QApplication::topLevelWidgets()) {
            fenetre =
                autre->isVisible() && autre->findChild<QLabel*>() != nullptr ? autre : fenetre;
        }
        if (fenetre == nullptr || enCours_) {
            return;
        }
        if (const QString titre = fenetre->findChild<QLabel*>()->text(); titre != page_) {
            entrer(titre);
        } else if (!gestes_.isEmpty()) {
            agir(*fenetre);
        }
    }

    void fermerLAlerte(QWidget& alerte) {
        if (alerte_ != &alerte) {
            alerte_ = &alerte;
            dire("alerte", textes(alerte));
            QTimer::singleShot(0, alerte.findChild<QPushButton*>(), &QPushButton::click);
        }
    }

    void entrer(const QString& titre) {
        page_ = titre;
        calme_.restart();
        dire("page", titre);
        const QStringList siennes = lignes_.filter(QString(titre + u'\t'));
        gestes_ = siennes.value(0).split(u'\t').mid(1);
        if (siennes.size() > 1) {
            lignes_.removeOne(siennes.front());
        }
    }

    // Au tour de boucle suivant : une alerte que le geste ouvre n'arrête pas les regards.
    void agir(QWidget& fenetre) {
        QStringList faits;
        const QString geste = gestes_.takeFirst();
        while (!gestes_.isEmpty() && gestes_.front().startsWith(u'@')) {
            faits += gestes_.takeFirst().mid(1);
        }
        enCours_ = true;
        calme_.restart();
        dire("clic", geste);
        QTimer::singleShot(0, &fenetre, [this, geste, faits, &fenetre] {
            if (geste == QLatin1String("fermer")) {
                fenetre.close();
            }
            for (QPushButton* bouton : fenetre.findChildren<QPushButton*>()) {
                if (bouton->isVisible() && bouton->text() == geste) {
                    bouton->click();
                    break;
                }
            }
            std::for_each(faits.begin(), faits.end(), changerLeMac);
            if (geste.startsWith(QLatin1String("Copier"))) {
                dire("rapport", QGuiApplication::clipboard()->text());
            }
            enCours_ = false;
        });
    }

    QTimer regard_;
    QElapsedTimer calme_;
    QStringList lignes_;
    QStringList gestes_;
    QString page_;
    QPointer<QWidget> alerte_;
    bool enCours_ = false;
};

// Rien avant que l'application n'existe ; la personne vit jusqu'à la fin du processus.
void arriver() {
    QTimer::singleShot(0, [] { static_cast<void>(new Personne); });
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(arriver)
