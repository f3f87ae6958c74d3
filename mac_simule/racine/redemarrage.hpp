// Ce qu'un redémarrage change aux faits d'un Mac.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace mac_simule {

// Ce qui est encore chargé au démarrage suivant : une extension tierce (/Library/Extensions) dont
// le dossier a quitté le disque ne l'est plus. `existe` reçoit un chemin de Mac.
std::string kextsApresRedemarrage(const std::string& lignes,
                                  const std::function<bool(const std::string&)>& existe);

// Les extensions système : celle qui attendait le redémarrage pour être désinstallée disparaît,
// celle qui tournait encore après avoir été décochée ne tourne plus.
std::string extensionsApresRedemarrage(const std::string& lignes);

// Passe le Mac au démarrage suivant : nouvelle heure de démarrage, extensions remises à jour,
// fenêtres fermées, demande satisfaite. Faux quand un fait ne s'écrit pas.
bool passerAuDemarrageSuivant(const std::filesystem::path& racine);

} // namespace mac_simule
