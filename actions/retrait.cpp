#include "actions/actions.hpp"
#include "actions/script_retrait.hpp"
#include "diagnostic/diagnostic.hpp"
#include "plateforme/fichiers.hpp"
#include "support/journal.hpp"
#include "support/systeme.hpp"

namespace {

constexpr unsigned kPermissionsScript = 0755;

// Les trois extensions vont dans chaque script, qui saute celles qui manquent.
std::vector<std::string> extensionsARetirer() {
    std::vector<std::string> chemins{Diagnostic::cheminD2xxHelper};
    chemins.insert(chemins.end(), Diagnostic::anciensKexts.begin(), Diagnostic::anciensKexts.end());
    return chemins;
}

plateforme::Erreur ecrireScript(const std::string& script, const std::string& texte) {
    if (plateforme::Erreur erreur = plateforme::creerDossiers(Actions::dossier())) {
        return erreur;
    }
    // Celui d'un retrait précédent passerait pour le résultat de celui-ci.
    if (plateforme::Erreur erreur = plateforme::supprimer(Actions::fichierResultat())) {
        return erreur;
    }
    if (plateforme::Erreur erreur = plateforme::ecrireAtomiquement(script, texte)) {
        return erreur;
    }
    return plateforme::changerPermissions(script, kPermissionsScript);
}

} // namespace

const std::string& Actions::dossier() {
    static const std::string& chemin = *new std::string(
        plateforme::dossierPersonnel() + "/Library/Application Support/Assistant Lumivia");
    return chemin;
}

const std::string& Actions::fichierResultat() {
    static const std::string& chemin = *new std::string(dossier() + "/resultat-retrait.txt");
    return chemin;
}

bool Actions::lancerRetraitDansTerminal(bool reconstruire) {
    reconstructionDemandee = reconstruire;
    const std::string script = dossier() + "/retirer-ancien-pilote.command";
    const std::string texte = scriptRetrait(fichierResultat(), extensionsARetirer(), reconstruire);
    if (const plateforme::Erreur erreur = ecrireScript(script, texte)) {
        Journal::shared().note("Impossible d'écrire le script : " + *erreur);
        return false;
    }
    Journal::shared().note("Retrait des anciens pilotes : ouverture du Terminal");
    return Systeme::commande("/usr/bin/open", {"-a", "Terminal", script}).code == 0;
}
