// Le retrait de l'ancien pilote : l'annonce, l'attente du script dans le Terminal, l'échec.
#include "actions/actions.hpp"
#include "app/assistant.hpp"
#include "plateforme/application.hpp"
#include "support/journal.hpp"

namespace {

constexpr double kHauteurImages = 220;
constexpr double kEspacementImages = 16;
constexpr double kIntervalle = 1.0;       // s, entre deux lectures du résultat
constexpr double kPatienceMaximale = 600; // s

} // namespace

void Assistant::pageNettoyageAction() {
    page(
        "Retirer l'ancien pilote",
        "L'assistant va retirer l'ancien pilote FTDI « D2xxHelper ». Il n'est pas effacé : il est "
        "mis de côté dans « /Library/Application Support/Assistant Lumivia ».\n\nQuand vous cliquez "
        "sur « Retirer », une fenêtre « Terminal » (texte blanc sur fond noir) s'ouvre :\n  1.  "
        "Tapez le mot de passe de votre session Mac (celui que vous tapez pour ouvrir votre "
        "session), puis appuyez sur la touche Entrée. Les caractères ne s'affichent pas pendant la "
        "frappe : c'est normal.\n  2.  Si une fenêtre demande ensuite à nouveau votre mot de passe "
        ": tapez-le et cliquez sur OK.\n  3.  Quand le Terminal affiche « Terminé », revenez ici : "
        "l'assistant continue tout seul.",
        {{"Retour", &Assistant::analyser}, {"Retirer", &Assistant::retirer}});
    imagesRetrait();
}

void Assistant::imagesRetrait() {
    rangeeImages({{"05-terminal-mot-de-passe",
                   "Étape 1 : la fenêtre Terminal demande le mot de passe de votre session."},
                  {"06-fenetre-kmutil-mot-de-passe",
                   "Étape 2 : une fenêtre demande à nouveau le mot de passe ; cliquez sur OK."}},
                 kHauteurImages, kEspacementImages);
}

void Assistant::retirer() {
    if (!Actions::lancerRetraitDansTerminal(diagnostic_.d2xxHelperCharge)) {
        pageEchec();
        return;
    }
    page("Retrait en cours…",
         "Suivez les consignes affichées dans la fenêtre « Terminal » :\n  1.  Tapez votre mot de "
         "passe puis Entrée (les caractères ne s'affichent pas : c'est normal).\n  2.  Si une "
         "fenêtre demande à nouveau le mot de passe : tapez-le et cliquez sur OK.\n\nL'assistant "
         "attend la fin de l'opération.",
         {{"Recommencer", &Assistant::retirer}});
    imagesRetrait();
    repeter(kIntervalle, [this, debut = plateforme::secondes()] { attendreResultat(debut); });
}

void Assistant::attendreResultat(double debut) {
    if (const auto resultat = Actions::resultatRetrait()) {
        retraitFini(resultat->ok, resultat->sortie);
    } else if (plateforme::secondes() - debut > kPatienceMaximale) {
        pageEchec();
    }
}

void Assistant::retraitFini(bool ok, const std::string& sortie) {
    Journal::shared().note(std::string("Résultat du retrait (") + (ok ? "ok" : "échec") + ") :\n" +
                           sortie);
    plateforme::activerApplication();
    if (ok) {
        retraitReussi();
    } else {
        pageEchec();
    }
}

void Assistant::retraitReussi() {
    diagnostic_.d2xxHelperFichier = false;
    diagnostic_.anciensKextsFTDI.clear();
    const bool redemarrageNecessaire = Actions::reconstructionDemandee;
    if (redemarrageNecessaire) {
        marquerRedemarrage();
    } else {
        diagnostic_.d2xxHelperCharge = false;
    }
    continuerApres(Etape::changement, redemarrageNecessaire);
}

void Assistant::pageEchec() {
    page(
        "Le retrait n'a pas abouti",
        "macOS a refusé l'opération (mot de passe refusé ou fenêtre fermée trop tôt). Vous pouvez "
        "réessayer. Si cela recommence, cliquez sur « Copier le rapport pour le support » en bas de "
        "la fenêtre, puis collez-le dans un e-mail à Voltaris.",
        {{"Quitter", &Assistant::quitter}, {"Réessayer", &Assistant::pageNettoyageAction}});
}
