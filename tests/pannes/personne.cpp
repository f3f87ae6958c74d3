// La personne simulée des essais de pannes : préchargée dans le véritable assistant, elle presse
// les boutons par leurs titres, sans attendre, et dit sur la sortie standard ce qu'elle voit.
//
// LUMIVIA_GESTES : une ligne par page, son titre puis les gestes, séparés par des barres. Un geste
// est un bouton, « fermer » (la fenêtre), ou « @FAIT=TEXTE » qui change un fait du Mac dès le geste
// précédent. À la deuxième visite d'une page, sa deuxième ligne sert, s'il y en a une.
#include <QtCore/QFile>
#include <QtCore/QTimer>
#include <QtGui/QClipboard>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

#include <cstdio>
#include <unistd.h>

namespace {

constexpr int kVie = 60'000; // ms ; une page où rien ne mène plus loin arrête la personne

void dire(const char* genre, QString texte) {
    texte.replace(u'\n', u'\v');
    std::printf("%s\t%s\n", genre, texte.toUtf8().constData());
    std::fflush(stdout);
}

void presser(const QWidget& fenetre, const QString& titre) {
    for (QPushButton* bouton : fenetre.findChildren<QPushButton*>()) {
        if (bouton->isVisible() && bouton->text() == titre) {
            bouton->click();
            return;
        }
    }
}

void changerLeMac(const QString& fait) {
    QFile fichier(qEnvironmentVariable("LUMIVIA_MAC") + "/etat/" + fait.section(u'=', 0, 0));
    if (fichier.open(QIODevice::WriteOnly)) {
        fichier.write((fait.section(u'=', 1) + u'\n').toUtf8());
    }
}

class Personne : public QObject {
public:
    Personne() {
        QTimer::singleShot(kVie, [] { ::_exit(3); });
        regarder();
    }

private:
    // Le regard suivant est promis d'abord : une alerte que le geste ouvre ne l'arrête pas.
    void regarder() {
        QTimer::singleShot(2, this, [this] { regarder(); });
        if (QWidget* alerte = QApplication::activeModalWidget()) {
            fermerLAlerte(*alerte);
            return;
        }
        for (QWidget* fenetre : QApplication::topLevelWidgets()) {
            if (const auto* titre = fenetre->findChild<QLabel*>(); titre && fenetre->isVisible()) {
                suivre(*fenetre, titre->text());
                return;
            }
        }
    }

    static void fermerLAlerte(const QWidget& alerte) {
        QStringList lus;
        for (const QLabel* etiquette : alerte.findChildren<QLabel*>()) {
            lus += etiquette->text();
        }
        dire("alerte", lus.join(u' '));
        alerte.findChild<QPushButton*>()->click();
    }

    void suivre(QWidget& fenetre, const QString& titre) {
        if (titre != page_) {
            page_ = titre;
            dire("page", titre);
            const QStringList siennes = lignes_.filter(QString(titre + u'|'));
            gestes_ = siennes.value(0).split(u'|').mid(1);
            if (siennes.size() > 1) {
                lignes_.removeOne(siennes.front());
            }
        } else if (!gestes_.isEmpty()) {
            agir(fenetre, gestes_.takeFirst());
        }
    }

    void agir(QWidget& fenetre, const QString& geste) {
        dire("clic", geste);
        if (geste == QLatin1String("fermer")) {
            fenetre.close();
        }
        presser(fenetre, geste);
        while (!gestes_.isEmpty() && gestes_.front().startsWith(u'@')) {
            changerLeMac(gestes_.takeFirst().mid(1));
        }
        if (geste.startsWith(QLatin1String("Copier"))) {
            dire("rapport", QGuiApplication::clipboard()->text());
        }
    }

    QStringList lignes_ = qEnvironmentVariable("LUMIVIA_GESTES").split(u'\n');
    QStringList gestes_;
    QString page_;
};

// Rien avant que l'application n'existe ; la personne vit jusqu'à la fin du processus.
void arriver() {
    QTimer::singleShot(0, [] { static_cast<void>(new Personne); });
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(arriver)
