// Le test du projecteur, et les deux pages où mène sa réponse.
#include "app/assistant.hpp"
#include "app/logiciels.hpp"
#include "plateforme/alerte.hpp"
#include "support/journal.hpp"

#include <algorithm>

namespace {

constexpr double kTailleTexte = 14;
constexpr double kLargeurConsigne = 660;

} // namespace

void Assistant::pageTest() {
    page("Tester avec votre projecteur",
         "Placez-vous devant un projecteur relié au récepteur HF (ou à la sortie XLR de "
         "l'émetteur).\n\nCliquez sur « Allumer » : l'assistant envoie la valeur maximale sur les "
         "512 canaux DMX. Le projecteur doit s'allumer à fond, quelle que soit son adresse (s'il a "
         "un canal stroboscope, il peut clignoter : c'est normal).",
         {{"Éteindre", &Assistant::eteindre},
          {"Clignoter", &Assistant::clignoter},
          {"Allumer", &Assistant::allumer}});
    const plateforme::Pile question(plateforme::Orientation::horizontale);
    question.setEspacement(12);
    const auto etiquette = plateforme::Etiquette::simple("Le projecteur réagit-il ?");
    etiquette.setPolice(kTailleTexte, true);
    question.ajouter(etiquette);
    question.ajouter(plateforme::Bouton("Oui", [this] { reussite(); }));
    question.ajouter(plateforme::Bouton("Non", [this] { depannage(); }));
    zone_.ajouter(question);
}

void Assistant::envoyer(TestDMX::Motif motif) {
    if (const auto message = test_->ouvrir()) {
        plateforme::alerte("Test impossible", *message);
        return;
    }
    Journal::shared().note(std::string("Test DMX : ") + nomMotif(motif));
    test_->envoyer(motif);
}

void Assistant::allumer() {
    envoyer(TestDMX::Motif::plein);
}

void Assistant::eteindre() {
    envoyer(TestDMX::Motif::noir);
}

void Assistant::clignoter() {
    envoyer(TestDMX::Motif::clignotant);
}

void Assistant::reussite() {
    test_->fermer();
    Journal::shared().note("Test réussi (confirmé par l'utilisateur)");
    page("Tout fonctionne \U0001F389",
         "Votre Mac et votre émetteur sont prêts. Vous pouvez fermer l'assistant et ouvrir votre "
         "logiciel lumière.\n\nChoisissez votre logiciel pour savoir comment y sélectionner "
         "l'émetteur :",
         {{"Quitter", &Assistant::quitter}});
    std::vector<std::string> noms;
    for (const Logiciels::Fiche& fiche : Logiciels::liste()) {
        noms.push_back(fiche.nom);
    }
    const plateforme::MenuLocal menu(noms, [this](int index) { logicielChoisi(index); });
    zone_.ajouter(menu);
    consigneLogiciel_.setLargeurMaximale(kLargeurConsigne);
    consigneLogiciel_.setPolice(kTailleTexte, false);
    zone_.ajouter(consigneLogiciel_);
    logicielChoisi(menu.index());
}

void Assistant::logicielChoisi(int index) {
    const std::vector<Logiciels::Fiche> fiches = Logiciels::liste();
    consigneLogiciel_.setTexte(fiches[static_cast<std::size_t>(std::max(index, 0))].consigne);
}

void Assistant::depannage() {
    test_->fermer();
    Journal::shared().note("Test échoué (le projecteur ne réagit pas)");
    page(
        "Le projecteur ne réagit pas",
        "Vérifiez, dans l'ordre :\n  1.  Le récepteur HF est alimenté et associé à l'émetteur (voir "
        "la notice de l'émetteur).\n  2.  Le projecteur est relié au récepteur par un câble DMX, et "
        "il est en mode DMX (pas en mode automatique).\n  3.  Débranchez puis rebranchez le câble "
        "USB de l'émetteur, puis refaites le test.\n\nSi rien ne change, cliquez sur « Copier le "
        "rapport pour le support » et envoyez-le à Voltaris.",
        {{"Quitter", &Assistant::quitter}, {"Refaire le test", &Assistant::refaireTest}});
}

void Assistant::refaireTest() {
    pageTest();
}
