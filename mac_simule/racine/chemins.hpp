// Les chemins d'un Mac, mis sous le dossier qui lui tient lieu de racine, et l'inverse.
#pragma once

#include <string>
#include <string_view>

namespace mac_simule {

// Vrai quand le chemin est sous l'un des dossiers que la racine remplace : /Library, /Users,
// /Applications, /System, /usr/bin, /usr/sbin. Tout le reste (/bin, /tmp, /dev…) est celui de la
// machine.
bool estSousLaRacine(std::string_view chemin);

// Le texte d'un script où `prefixe` précède chaque chemin de Mac, une fois et à son début
// seulement : « /Users/x/Library » n'est précédé qu'une fois. `prefixe` n'a ni espace ni caractère
// que le shell lirait autrement : l'endroit du script, cité ou non, n'importe donc pas.
std::string avecPrefixe(std::string_view script, std::string_view prefixe);

// Ôte le préfixe d'un texte qui arrive par morceaux, même coupé en deux. Un fil à la fois.
class FiltrePrefixe {
public:
    explicit FiltrePrefixe(std::string_view prefixe);

    // Ce qui est sûr dès maintenant ; un début de préfixe attend la suite.
    std::string passer(std::string_view morceau);
    // Ce qui attendait, quand rien ne suit.
    std::string finir();

private:
    std::string cherche_;
    std::string attente_;
};

} // namespace mac_simule
