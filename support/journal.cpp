#include "support/journal.hpp"

#include "plateforme/fichiers.hpp"
#include "plateforme/langue.hpp"

#include <utility>

Journal& Journal::shared() {
    static Journal& unique = *new Journal;
    return unique;
}

Journal::Journal()
    : fichier_(plateforme::dossierPersonnel() + "/Library/Logs/Assistant Lumivia.log") {}

void Journal::note(const std::string& message) {
    const std::string date = plateforme::horodatageLocal();
    std::string ligne;
    // Gardée jusqu'à la fin : une ligne prend sa place, et pas une de plus.
    ligne.reserve(date.size() + message.size() + sizeof "[] ");
    ligne.append("[").append(date).append("] ").append(message);
    lignes_.push_back(std::move(ligne));
    ecrire(lignes_.back() + "\n");
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
