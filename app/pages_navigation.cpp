// D'une page à la suivante, et la seule page que la navigation montre elle-même.
#include "app/assistant.hpp"

void Assistant::suivante() {
    continuerApres(Etape::analyse, redemarrageEnAttente());
}

void Assistant::continuerApres(Etape achevee, bool redemarrage) {
    (this->*message(pageSuivante(achevee, diagnostic_, redemarrage)))();
}

Assistant::Message Assistant::message(PageSuivante page) {
    switch (page) {
    case PageSuivante::redemarrage:
        return &Assistant::pageRedemarrage;
    case PageSuivante::retrait:
        return &Assistant::pageNettoyageAction;
    case PageSuivante::extension:
        return &Assistant::pageDext;
    case PageSuivante::test:
        return &Assistant::pageTest;
    case PageSuivante::brancher:
        return &Assistant::pageBrancher;
    case PageSuivante::analyse:
        break;
    }
    return &Assistant::analyser;
}

void Assistant::pageBrancher() {
    page("Branchez l'émetteur",
         "Votre Mac est prêt, mais l'assistant ne voit pas l'émetteur.\n\n  1.  Branchez "
         "le câble USB de l'émetteur sur le Mac (évitez les hubs USB si possible).\n  2. "
         " Attendez 5 secondes, puis cliquez sur « Réessayer ».",
         {{"Quitter", &Assistant::quitter}, {"Réessayer", &Assistant::analyser}});
}
