#include "actions/actions.hpp"
#include "plateforme/fichiers.hpp"
#include "plateforme/identite.hpp"
#include "plateforme/liste_proprietes.hpp"
#include "plateforme/paquet.hpp"
#include "support/journal.hpp"

namespace {

std::string etiquette() {
    return std::string(plateforme::kIdentifiantPaquet) + ".relance";
}

plateforme::Erreur ecrireAgent() {
    const std::string& agent = Actions::agentRelance();
    if (plateforme::Erreur erreur = plateforme::creerDossiers(agent.substr(0, agent.rfind('/')))) {
        return erreur;
    }
    const plateforme::ListeSerialisee liste = plateforme::serialiserListe(
        {{"Label", etiquette()},
         {"ProgramArguments",
          std::vector<std::string>{"/usr/bin/open", plateforme::cheminPaquet()}},
         {"RunAtLoad", true}});
    if (!liste.octets) {
        return liste.erreur;
    }
    return plateforme::ecrire(agent, *liste.octets);
}

} // namespace

const std::string& Actions::agentRelance() {
    static const std::string& chemin = *new std::string(
        plateforme::dossierPersonnel() + "/Library/LaunchAgents/" + etiquette() + ".plist");
    return chemin;
}

void Actions::programmerRelance() {
    if (const plateforme::Erreur erreur = ecrireAgent()) {
        Journal::shared().note("Relance automatique impossible : " + *erreur);
    } else {
        Journal::shared().note("Relance automatique programmée après le redémarrage");
    }
}

bool Actions::annulerRelance() {
    const bool programmee = plateforme::existe(agentRelance());
    if (programmee) {
        // Un refus ne change pas cette ouverture ; la suivante recommence.
        static_cast<void>(plateforme::supprimer(agentRelance()));
    }
    return programmee;
}
