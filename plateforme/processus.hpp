// Lancement d'un programme, sortie et erreur standard réunies dans un seul tube.
#pragma once

#include <string>
#include <vector>

namespace plateforme {

struct FinDeProcessus {
    // Octets reçus, dans l'ordre du tube, ou ce qui en tient en mémoire et une phrase qui le dit ;
    // le texte de l'erreur quand le programme n'a pas démarré.
    std::string octets;
    // Statut de fin ; le numéro du signal quand un signal l'a tué ; -1 quand il n'a pas démarré, ou
    // que le système ne dit pas comment il a fini : les octets reçus restent alors.
    int code = -1;
};

// Lance `chemin` (absolu) avec ces arguments, sans interpréteur, lit le tube jusqu'à sa fin, puis
// attend la fin du programme. Bloque le fil appelant aussi longtemps que le programme, ou un
// descendant qui garde le tube ouvert, vit. S'appelle de n'importe quel fil, de plusieurs à la
// fois. L'enfant hérite de l'entrée standard, de l'environnement et du dossier courant, et d'aucun
// autre descripteur ; aucun signal n'est masqué chez lui, chacun y a son effet ordinaire.
[[nodiscard]] FinDeProcessus executer(const std::string& chemin,
                                      const std::vector<std::string>& arguments);

// Rend au programme la fin de ses enfants : qui l'a lancé a pu lui faire ignorer SIGCHLD, et le
// système oublierait alors comment chacun a fini. Une fois, au début, avant tout autre fil.
void retablirFinDesEnfants();

} // namespace plateforme
