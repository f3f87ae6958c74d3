// Celui de Linux, et les deux ajouts de macOS : là-bas un drapeau ferme d'un coup tous les
// descripteurs qu'aucune action ne nomme ; ici nommer l'entrée ferme ceux qui suivent les sorties.
#pragma once

#include_next <spawn.h>

enum : short { POSIX_SPAWN_CLOEXEC_DEFAULT = 0 };

extern "C" int posix_spawn_file_actions_addinherit_np(posix_spawn_file_actions_t* actions,
                                                      int descripteur);
