// Tant qu'une alerte est ouverte, les minuteurs des pages se taisent : sur Mac la boucle d'une
// alerte ne les sert pas. Fil principal.
#pragma once

namespace plateforme {

bool alerteOuverte();

} // namespace plateforme
