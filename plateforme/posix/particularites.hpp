// Ce que le code POSIX partagé demande à chacun des deux systèmes. Réservé à plateforme/.
#pragma once

#include <spawn.h>
#include <string>

namespace plateforme::natif {

// Chemin réel d'un chemin de Mac : lui-même sur un Mac, sous la racine sur le Mac simulé.
std::string cheminReel(const std::string& chemin);

// Remplace dans un texte du système les chemins réels par les chemins de Mac.
std::string texteAffiche(std::string texte);

// Tube dont les deux bouts ne passent pas aux enfants ; faux (errno) en cas d'échec.
[[nodiscard]] bool ouvrirTube(int tube[2]);

// Fait que l'enfant ne reçoit que les descripteurs 0, 1 et 2. Rend 0 ou un code d'erreur.
[[nodiscard]] int isolerDescripteurs(posix_spawn_file_actions_t& actions,
                                     posix_spawnattr_t& attributs);

} // namespace plateforme::natif
