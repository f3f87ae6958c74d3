#include "plateforme/alerte.hpp"

#include "plateforme/presse_papiers.hpp"
#include "plateforme/qt/alerte_ouverte.hpp"
#include "plateforme/qt/application_qt.hpp"
#include "plateforme/qt/fenetre_qt.hpp"
#include "plateforme/qt/vue_native.hpp"

#include <QtGui/QClipboard>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QDialog>

namespace plateforme {
namespace {

constexpr double kLargeur = 340;
constexpr double kTailleMessage = 15;
constexpr double kTailleInformation = 13;

int alertesOuvertes = 0;

// Une touche tenue depuis la page ne la ferme pas aussitôt ouverte.
class DialogueAlerte : public QDialog {
public:
    using QDialog::QDialog;

protected:
    void keyPressEvent(QKeyEvent* evenement) override {
        if (!evenement->isAutoRepeat()) {
            QDialog::keyPressEvent(evenement);
        }
    }
};

Etiquette paragraphe(const std::string& texte, double taille, bool gras) {
    Etiquette etiquette = Etiquette::multiligne(texte);
    etiquette.setPolice(taille, gras);
    etiquette.setLargeurMaximale(kLargeur);
    return etiquette;
}

} // namespace

bool alerteOuverte() {
    return alertesOuvertes > 0;
}

void alerte(const std::string& message, const std::string& information) {
    applicationQt();
    DialogueAlerte dialogue(QApplication::activeWindow());
    donnerLesRaccourcis(dialogue);
    dialogue.setWindowTitle(QApplication::applicationName());
    auto* colonne = new QVBoxLayout(&dialogue);
    colonne->setContentsMargins(24, 20, 24, 20);
    colonne->setSpacing(10);
    colonne->setSizeConstraint(QLayout::SetFixedSize);
    const Etiquette titre = paragraphe(message, kTailleMessage, true);
    const Etiquette texte = paragraphe(information, kTailleInformation, false);
    colonne->addWidget(&widget<QWidget>(titre));
    colonne->addWidget(&widget<QWidget>(texte));
    const Bouton ok("OK", [&dialogue] { dialogue.accept(); });
    ok.setParDefaut();
    colonne->addSpacing(6);
    colonne->addWidget(&widget<QPushButton>(ok), 0, Qt::AlignRight);
    ++alertesOuvertes;
    dialogue.exec();
    --alertesOuvertes;
}

void copierTexte(const std::string& texte) {
    applicationQt();
    QGuiApplication::clipboard()->setText(texteQt(texte));
}

} // namespace plateforme
