#include "plateforme/alerte.hpp"

#include "plateforme/linux/alerte_ouverte.hpp"
#include "plateforme/linux/application_qt.hpp"
#include "plateforme/linux/vue_native.hpp"
#include "plateforme/presse_papiers.hpp"

#include <QtGui/QClipboard>
#include <QtWidgets/QMessageBox>

namespace plateforme {
namespace {

int alertesOuvertes = 0;

} // namespace

bool alerteOuverte() {
    return alertesOuvertes > 0;
}

void alerte(const std::string& message, const std::string& information) {
    applicationQt();
    QMessageBox boite(QApplication::activeWindow());
    boite.setWindowTitle(QApplication::applicationName());
    boite.setIcon(QMessageBox::Information);
    boite.setTextFormat(Qt::PlainText);
    boite.setText(texteQt(message));
    boite.setInformativeText(texteQt(information));
    Bouton ok("OK", [] {});
    ok.setParDefaut();
    auto* bouton = &widget<QPushButton>(ok);
    boite.addButton(bouton, QMessageBox::AcceptRole);
    boite.setDefaultButton(bouton);
    boite.setEscapeButton(bouton);
    ++alertesOuvertes;
    boite.exec();
    --alertesOuvertes;
    bouton->setParent(nullptr);
}

void copierTexte(const std::string& texte) {
    applicationQt();
    QGuiApplication::clipboard()->setText(texteQt(texte));
}

} // namespace plateforme
