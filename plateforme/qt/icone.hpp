// L'icône de l'application, telle que son paquet la donne au Dock d'un Mac. Fil principal.
#pragma once

#include <QtGui/QIcon>

namespace plateforme {

// Vide quand le paquet n'en a pas.
QIcon iconeDuPaquet();

} // namespace plateforme
