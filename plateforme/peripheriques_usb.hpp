// Les périphériques USB branchés, d'après le registre des entrées-sorties.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace plateforme {

// Un élément par périphérique de ce fabricant et de ce produit, dans l'ordre du registre : son
// numéro de série, absent quand la propriété manque ou n'est pas un texte. Liste vide quand le
// registre ne répond pas. N'importe quel fil.
std::vector<std::optional<std::string>> numerosDeSerieUSB(std::uint16_t fabricant,
                                                          std::uint16_t produit);

} // namespace plateforme
