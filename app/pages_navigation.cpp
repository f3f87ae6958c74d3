// « Continuer », et la seule page que la navigation montre elle-même.
#include "app/assistant.hpp"
#include "app/navigation.hpp"

void Assistant::suivante() {
    switch (pageSuivante(diagnostic_, redemarrageEnAttente())) {
    case PageSuivante::redemarrage:
        return pageRedemarrage();
    case PageSuivante::retrait:
        return pageNettoyageAction();
    case PageSuivante::extension:
        return pageDext();
    case PageSuivante::test:
        return pageTest();
    case PageSuivante::brancher:
        return page(
            "Branchez l'émetteur",
            "Votre Mac est prêt, mais l'assistant ne voit pas l'émetteur.\n\n  1.  Branchez "
            "le câble USB de l'émetteur sur le Mac (évitez les hubs USB si possible).\n  2. "
            " Attendez 5 secondes, puis cliquez sur « Réessayer ».",
            {{"Quitter", &Assistant::quitter}, {"Réessayer", &Assistant::analyser}});
    }
}
