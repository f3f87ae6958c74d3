// Décodage UTF-8 et texte Unicode. Fonctions pures, n'importe quel fil.
#pragma once

#include <string>
#include <string_view>

// Rend le texte avec un U+FFFD à la place de chaque plus longue sous-suite mal formée, comme le
// recommande Unicode. Un texte valide est rendu tel quel, sans copie ; une marque d'ordre des
// octets est un caractère comme un autre.
std::string decoderUtf8(std::string octets);

bool estUtf8Valide(std::string_view octets);

// Retire des deux bouts les blancs et les fins de ligne d'Unicode. Le texte est de l'UTF-8 valide.
std::string rogner(std::string_view texte);
