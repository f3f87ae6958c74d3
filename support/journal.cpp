#include "support/journal.hpp"

#include "plateforme/fichiers.hpp"
#include "plateforme/langue.hpp"

Journal& Journal::shared() {
    static Journal& unique = *new Journal;
    return unique;
}

Journal::Journal()
    : fichier_(plateforme::dossierPersonnel() + "/Library/Logs/Assistant Lumivia.log") {
    // Un journal déjà créé ne l'est pas de nouveau : son temporaire ne partirait jamais.
    plateforme::oterTemporaires(fichier_);
}

void Journal::note(const std::string& message) {
    const std::string horodatage = plateforme::horodatageLocal();
    std::string& ligne = lignes_.emplace_back();
    ligne.reserve(horodatage.size() + message.size() + 3); // elle reste : rien de trop
    ligne += '[';
    ligne += horodatage;
    ligne += ']';
    ligne += ' ';
    ligne += message;
    ecrire(ligne + "\n");
}

void Journal::ecrire(const std::string& ligne) {
    const bool coupe = peutEtreCoupe_ && !plateforme::finitUneLigne(fichier_);
    peutEtreCoupe_ = !ajouterAuFichier(coupe ? "\n" + ligne : ligne);
}

// Faux quand la ligne n'est pas, ou pas entière, dans le fichier : elle vit en mémoire, et un
// fichier qui existe et ne s'ouvre pas garde ce que d'autres y ont écrit.
bool Journal::ajouterAuFichier(const std::string& ligne) const {
    using plateforme::Ajout;
    const Ajout ajout = plateforme::ajouterALaFin(fichier_, ligne);
    if (ajout != Ajout::absent) {
        return ajout == Ajout::fait;
    }
    // Un autre programme a pu créer le fichier entre les deux appels.
    return plateforme::creerSansEcraser(fichier_, ligne) ||
           plateforme::ajouterALaFin(fichier_, ligne) == Ajout::fait;
}
