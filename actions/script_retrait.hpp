// Le texte du script de retrait. Fonction pure.
#pragma once

#include <string>
#include <vector>

// Script zsh, sans fin de ligne finale, qui met de côté celles des extensions qui existent,
// reconstruit au besoin les collections d'extensions, et laisse ce qu'il a affiché dans
// `fichierResultat`. Ni les chemins ni celui du résultat ne sont échappés : les premiers sont
// fixes, le second est le dossier personnel tel que le système le donne.
std::string scriptRetrait(const std::string& fichierResultat,
                          const std::vector<std::string>& extensions, bool reconstruire);
