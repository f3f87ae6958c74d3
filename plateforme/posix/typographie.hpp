// La typographie d'un texte de plusieurs lignes, la même dans les deux adaptateurs : où une ligne
// ne se coupe pas, et sous quoi revient la suite d'une étape. Ce qui se copie et s'énonce reste le
// texte d'origine. Textes en UTF-8, fonctions pures. Réservé à plateforme/.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace plateforme {

// Les mêmes mots, où une ligne ne finit ni par un guillemet ouvrant ni par un trait d'union, et ne
// commence pas par une ponctuation : rien ne s'y voit de plus.
std::string lier(std::string texte);

// Le texte d'origine de ce que `lier` a rendu, ou d'une partie.
std::string delier(std::string texte);

// Les octets du numéro d'une étape, ou de l'émoji qui ouvre une ligne, espaces compris : la suite
// de la ligne s'aligne après eux. 0 pour toute autre ligne.
std::size_t retraitSuspendu(std::string_view ligne);

} // namespace plateforme
