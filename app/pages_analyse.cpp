// L'analyse, faite sans figer la fenêtre, et la page de son résultat.
#include "app/assistant.hpp"
#include "app/lignes_resultat.hpp"
#include "support/journal.hpp"

void Assistant::analyser() {
    page("Analyse en cours…", "L'assistant examine votre Mac. Cela prend quelques secondes.", {});
    analyserPuis([this](const Diagnostic& resultat) { montrerResultat(resultat); });
}

void Assistant::analyserPuis(std::function<void(const Diagnostic&)> suite) {
    ++analysesEnCours_;
    plateforme::executerEnArrierePlan(
        [assistant = shared_from_this(), suite = std::move(suite), demandee = pageCourante_] {
            const Diagnostic resultat = Diagnostic::analyser();
            plateforme::executerSurPrincipal([assistant, suite, resultat, demandee] {
                --assistant->analysesEnCours_;
                if (assistant->pageCourante_ == demandee) {
                    suite(resultat);
                }
            });
        });
}

void Assistant::montrerResultat(const Diagnostic& resultat) {
    diagnostic_ = resultat;
    Journal::shared().note("Diagnostic :\n" + diagnostic_.rapport());
    if (!redemarrageEnAttente()) {
        oublierRedemarrage();
    }
    const bool enAttente = redemarrageEnAttente();
    page("Résultat de l'analyse", "Voici ce que l'assistant a trouvé :", {});
    for (const LigneResultat& trouvee : lignesResultat(diagnostic_, enAttente)) {
        ligne(trouvee.icone, trouvee.texte);
    }
    page2Boutons(
        {{"Analyser à nouveau", &Assistant::analyser}, {"Continuer", &Assistant::suivante}});
}
