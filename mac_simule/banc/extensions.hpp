// La case à cocher d'une extension de pilote, telle que la liste des extensions système l'écrit.
// Fonctions pures sur les lignes de etat/extensions_systeme.
#pragma once

#include <QtCore/QString>

namespace banc {

enum class Case { absente, cochee, decochee };

// La case de l'extension de FTDI. Une version qui s'en va n'a plus de case.
Case caseFtdi(const QString& lignes);

// Les mêmes lignes, la case cochée ou décochée : « * * … [activated enabled] » devient
// «   * … [activated disabled] ». Les autres lignes ne bougent pas.
QString cocherFtdi(const QString& lignes, bool cochee);

} // namespace banc
