#include "support/journal.hpp"

#include "plateforme/fichiers.hpp"
#include "plateforme/langue.hpp"

Journal& Journal::shared() {
    static Journal& unique = *new Journal;
    return unique;
}

Journal::Journal()
    : fichier_(plateforme::dossierPersonnel() + "/Library/Logs/Assistant Lumivia.log") {}

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

void Journal::ecrire(const std::string& ligne) const {
    using plateforme::Ajout;
    if (plateforme::ajouterALaFin(fichier_, ligne) != Ajout::absent ||
        plateforme::creerSansEcraser(fichier_, ligne)) {
        return;
    }
    // Un autre programme a pu créer le fichier entre les deux appels. Sinon la ligne ne vit qu'en
    // mémoire : un fichier qui existe et ne s'ouvre pas garde ce que d'autres y ont écrit.
    static_cast<void>(plateforme::ajouterALaFin(fichier_, ligne));
}
