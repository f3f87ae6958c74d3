// Le rapport pour le support, et les façons de finir.
#include "app/rapport_support.hpp"

#include "app/assistant.hpp"
#include "plateforme/alerte.hpp"
#include "plateforme/application.hpp"
#include "plateforme/presse_papiers.hpp"
#include "support/journal.hpp"
#include "support/listes.hpp"

std::string rapportSupport(const std::string& rapportDiagnostic,
                           const std::vector<std::string>& lignesJournal) {
    return "Assistant Lumivia — rapport\n\n" + rapportDiagnostic + "\n\nJournal :\n" +
           joindre(lignesJournal, "\n");
}

// Une analyse neuve, sur place : le rapport décrit le Mac au moment de la copie.
void Assistant::copierRapport() {
    plateforme::copierTexte(
        rapportSupport(Diagnostic::analyser().rapport(), Journal::shared().lignes()));
    plateforme::alerte("Rapport copié", "Collez-le (⌘V) dans un e-mail à Voltaris.");
}

void Assistant::quitter() {
    plateforme::terminerApplication();
}

void Assistant::fermetureFenetre() {
    test_->fermer();
    plateforme::terminerApplication();
}
