#include "plateforme/linux/demonstration.hpp"

#include "plateforme/fichiers.hpp"
#include "plateforme/linux/application_qt.hpp"
#include "plateforme/linux/demonstration_gestes.hpp"
#include "plateforme/linux/demonstration_image.hpp"
#include "plateforme/linux/demonstration_transcription.hpp"
#include "plateforme/linux/fenetre_qt.hpp"
#include "plateforme/linux/mac_simule.hpp"

#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QTimer>
#include <QtGui/QClipboard>

#include <cstdio>
#include <cstdlib>
#include <deque>

namespace plateforme {
namespace {

constexpr int kIntervalle = 10;       // ms, entre deux regards sur la fenêtre
constexpr qint64 kPatience = 120'000; // ms sans que la page change
// Au-delà, les pages tournent en rond. Les images se numérotent sur deux chiffres, et une page en
// prend plusieurs.
constexpr int kImagesMax = 90;
constexpr std::size_t kLimiteFichier = 64UL * 1024 * 1024;

// Le nom de fichier d'une page : son titre sans accents ni ponctuation.
QString nomDeFichier(const QString& titre) {
    QString nom;
    for (const QChar c : titre.normalized(QString::NormalizationForm_D).toLower()) {
        if (c.isLetterOrNumber() && c.unicode() < 128) {
            nom += c;
        } else if (!c.isMark() && !nom.endsWith(u'-') && !nom.isEmpty()) {
            nom += u'-';
        }
    }
    return nom.endsWith(u'-') ? nom.chopped(1) : nom;
}

// Les images déjà prises, redémarrages compris.
int nombreDImages() {
    return std::atoi(mac_simule::etat("demonstration/numero").value_or("0").c_str());
}

FenetreQt* fenetreAssistant() {
    for (QWidget* fenetre : QApplication::topLevelWidgets()) {
        if (auto* trouvee = dynamic_cast<FenetreQt*>(fenetre); trouvee && trouvee->isVisible()) {
            return trouvee;
        }
    }
    return nullptr;
}

class Demonstration : public QObject {
public:
    explicit Demonstration(QString dossier) : dossier_(std::move(dossier)) {
        QObject::connect(&regard_, &QTimer::timeout, [this] { regarder(); });
        regard_.start(kIntervalle);
        sansChangement_.start();
        qApp->installEventFilter(this);
        // La page que l'ouverture a déjà montrée : celle d'une analyse peut finir avant le premier
        // regard régulier, si la première peinture de la fenêtre prend du temps.
        QTimer::singleShot(0, this, [this] { regarder(); });
    }

    // Une page qui ne dure que le temps d'une analyse passe entre deux regards : sa mise en place
    // en provoque un.
    bool eventFilter(QObject* objet, QEvent* evenement) override {
        if (evenement->type() == QEvent::LayoutRequest) {
            QTimer::singleShot(0, this, [this] { regarder(); });
        }
        return QObject::eventFilter(objet, evenement);
    }

private:
    void regarder();
    void entrerDansLaPage(const QString& titre);
    void repondreALAlerte(QWidget& alerte);
    // Vrai quand le geste est achevé.
    bool faire(const Geste& geste);
    bool cliquer(const QString& titre);
    bool attendre(int millisecondes);
    bool demanderPortrait(const QString& nom);
    bool choisir(const QString& article);
    void prendreImage(const QString& complement, QWidget* alerte);
    void noter(const QString& nom, const QString& texte);
    void noterLeGuide();
    void finir();
    void abandonner(const QString& raison);
    QString cheminImage(const QString& nom);
    std::string gesteVoulu(const QString& titre);

    QString dossier_;
    QTimer regard_;
    QString page_;
    std::deque<Geste> gestes_;
    QElapsedTimer sansChangement_;
    QElapsedTimer attente_;
    QString portrait_;
    QPointer<QWidget> alerteVue_;
};

void Demonstration::regarder() {
    FenetreQt* fenetre = fenetreAssistant();
    if (fenetre == nullptr || !regard_.isActive()) {
        return;
    }
    if (QWidget* alerte = QApplication::activeModalWidget()) {
        repondreALAlerte(*alerte);
        return;
    }
    // Le titre est la première étiquette du contenu.
    const QString titre = fenetre->contenu()->findChild<QLabel*>()->text();
    if (titre != page_) {
        entrerDansLaPage(titre);
    }
    if (!gestes_.empty() && faire(gestes_.front()) && !gestes_.empty()) {
        gestes_.pop_front();
    }
    if (sansChangement_.elapsed() > kPatience) {
        abandonner("la page « " + page_ + " » ne change plus");
    }
}

void Demonstration::entrerDansLaPage(const QString& titre) {
    page_ = titre;
    attente_.invalidate();
    sansChangement_.restart();
    const std::string derniere = mac_simule::etat("fin").value_or("");
    if (nombreDImages() >= kImagesMax) {
        abandonner(QStringLiteral("%1 images n'ont pas mené à la page « %2 »")
                       .arg(kImagesMax)
                       .arg(texteQt(derniere)));
        return;
    }
    const std::vector<Geste> gestes =
        gestesDeLaPage(titre.toStdString(), titre.toStdString() == derniere, gesteVoulu(titre));
    gestes_.assign(gestes.begin(), gestes.end());
}

// Les gestes du scénario servent une fois chacun, dans l'ordre du fichier.
std::string Demonstration::gesteVoulu(const QString& titre) {
    const std::string chemin = mac_simule::cheminEtat("gestes");
    QStringList lignes =
        texteQt(lireFichier(chemin, kLimiteFichier).value_or("")).split(u'\n', Qt::SkipEmptyParts);
    for (int i = 0; i < lignes.size(); ++i) {
        if (const QStringList champs = lignes[i].split(u'\t');
            champs.size() == 2 && champs[0] == titre) {
            lignes.removeAt(i);
            if (ecrireAtomiquement(chemin, lignes.join(u'\n').toStdString())) {
                abandonner("les gestes du scénario ne s'écrivent pas");
            }
            return champs[1].toStdString();
        }
    }
    return {};
}

void Demonstration::repondreALAlerte(QWidget& alerte) {
    if (alerteVue_ == &alerte) {
        return;
    }
    alerteVue_ = &alerte;
    sansChangement_.restart();
    prendreImage(QStringLiteral("alerte"), &alerte);
    if (auto* bouton = alerte.findChild<QPushButton*>()) {
        QTimer::singleShot(0, bouton, &QPushButton::click);
    }
}

bool Demonstration::faire(const Geste& geste) {
    const QString valeur = texteQt(geste.valeur);
    switch (geste.genre) {
    case Geste::Genre::image:
        prendreImage(valeur, nullptr);
        return true;
    case Geste::Genre::clic:
        return cliquer(valeur);
    case Geste::Genre::attendre:
        return attendre(valeur.toInt());
    case Geste::Genre::portrait:
        return demanderPortrait(valeur);
    case Geste::Genre::desactiverExtension: {
        QString lignes = texteQt(
            lireFichier(mac_simule::cheminEtat("extensions_systeme"), kLimiteFichier).value_or(""));
        lignes.replace(QLatin1String("*\t*\t658CPPCMJJ"), QLatin1String("\t*\t658CPPCMJJ"));
        lignes.replace(QLatin1String("[activated enabled]"), QLatin1String("[activated disabled]"));
        return !ecrireAtomiquement(mac_simule::cheminEtat("extensions_systeme"),
                                   lignes.toStdString());
    }
    case Geste::Genre::guide:
        noterLeGuide();
        return true;
    case Geste::Genre::choisir:
        return choisir(valeur);
    case Geste::Genre::finir:
        // Le rapport est copié quand son alerte s'est fermée.
        if (QGuiApplication::clipboard()->text().isEmpty()) {
            return false;
        }
        finir();
        return true;
    }
    return true;
}

// Le clic part au tour de boucle suivant : s'il ouvre une alerte, les regards continuent.
bool Demonstration::cliquer(const QString& titre) {
    for (QPushButton* bouton : fenetreAssistant()->contenu()->findChildren<QPushButton*>()) {
        if (bouton->isVisible() &&
            (titre.isEmpty() ? bouton->isDefault() : bouton->text() == titre)) {
            QTimer::singleShot(0, bouton, &QPushButton::click);
            return true;
        }
    }
    abandonner("la page « " + page_ + " » n'a pas de bouton « " + titre + " »");
    return true;
}

bool Demonstration::attendre(int millisecondes) {
    if (!attente_.isValid()) {
        attente_.start();
    }
    if (attente_.elapsed() < millisecondes) {
        return false;
    }
    attente_.invalidate();
    return true;
}

bool Demonstration::demanderPortrait(const QString& nom) {
    const std::string demande = mac_simule::cheminEtat("demonstration/portrait_demande");
    if (portrait_.isEmpty()) {
        portrait_ = cheminImage(nom);
        if (ecrireAtomiquement(demande, portrait_.toStdString() + "\n")) {
            abandonner("la demande d'image au banc ne s'écrit pas");
        }
        return false;
    }
    if (existe(demande)) { // le banc la retire quand l'image est écrite
        return false;
    }
    portrait_.clear();
    return true;
}

bool Demonstration::choisir(const QString& article) {
    auto* menu = fenetreAssistant()->contenu()->findChild<QComboBox*>();
    const int index = menu == nullptr ? -1 : menu->findText(article);
    if (index < 0) {
        abandonner("le menu n'a pas d'article « " + article + " »");
        return true;
    }
    menu->setCurrentIndex(index);
    emit menu->activated(index);
    return true;
}

QString Demonstration::cheminImage(const QString& nom) {
    const int numero = nombreDImages() + 1;
    mac_simule::ecrireEtat("demonstration/numero", std::to_string(numero));
    return QStringLiteral("%1/%2-%3.png").arg(dossier_).arg(numero, 2, 10, QChar(u'0')).arg(nom);
}

void Demonstration::prendreImage(const QString& complement, QWidget* alerte) {
    const QString nom = nomDeFichier(page_) + (complement.isEmpty() ? "" : "-" + complement);
    const QString chemin = cheminImage(nom);
    if (!imageDeLaFenetre(*fenetreAssistant(), alerte).save(chemin)) {
        abandonner("l'image " + chemin + " ne s'écrit pas");
    }
    noter(nom, transcrire(alerte != nullptr ? *alerte : *fenetreAssistant()->contenu()));
}

// À la suite de ce qu'ont noté les ouvertures d'avant.
void Demonstration::noter(const QString& nom, const QString& texte) {
    QFile transcription(dossier_ + "/transcription.txt");
    if (!transcription.open(QFile::WriteOnly | QFile::Append) ||
        transcription.write(QStringLiteral("== %1\n%2\n").arg(nom, texte).toUtf8()) < 0) {
        abandonner("la transcription ne s'écrit pas");
    }
}

// La consigne de chaque logiciel : la dernière étiquette qui n'est pas celle de la version.
void Demonstration::noterLeGuide() {
    auto* menu = fenetreAssistant()->contenu()->findChild<QComboBox*>();
    for (int i = 0; menu != nullptr && i < menu->count(); ++i) {
        choisir(menu->itemText(i));
        const auto etiquettes = fenetreAssistant()->contenu()->findChildren<QLabel*>();
        noter("guide : " + menu->itemText(i), etiquettes[etiquettes.size() - 2]->accessibleName());
    }
}

void Demonstration::finir() {
    const std::string dossier = dossier_.toStdString();
    const auto journal =
        lireFichier(dossierPersonnel() + "/Library/Logs/Assistant Lumivia.log", kLimiteFichier);
    const std::string rapport = QGuiApplication::clipboard()->text().toStdString();
    if (!journal || ecrire(dossier + "/journal.txt", *journal) ||
        ecrire(dossier + "/rapport.txt", rapport) ||
        !mac_simule::ecrireEtat("demonstration/fini", "oui")) {
        abandonner("le journal ou le rapport ne s'écrit pas");
        return;
    }
    regard_.stop();
    QCoreApplication::exit(EXIT_SUCCESS);
}

void Demonstration::abandonner(const QString& raison) {
    std::fprintf(stderr, "La démonstration s'arrête : %s.\n", raison.toUtf8().constData());
    mac_simule::ecrireEtat("demonstration/echec", raison.toStdString());
    gestes_.clear();
    regard_.stop();
    QCoreApplication::exit(EXIT_FAILURE);
}

} // namespace

void demarrerDemonstration() {
    const char* dossier = std::getenv("LUMIVIA_DEMONSTRATION");
    if (dossier != nullptr && QDir().mkpath(texteQt(mac_simule::cheminEtat("demonstration")))) {
        static Demonstration& unique = *new Demonstration(QString::fromUtf8(dossier));
        static_cast<void>(unique);
    }
}

} // namespace plateforme
