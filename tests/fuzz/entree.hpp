// Ce que partagent les programmes qui reçoivent des entrées tirées au hasard.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace essai {

// L'entrée fautive est gardée par qui l'a tirée.
inline void exiger(bool vrai, const char* propriete) {
    if (!vrai) {
        std::fprintf(stderr, "Propriété fausse : %s.\n", propriete);
        std::abort();
    }
}

void eprouver(std::string_view octets);

} // namespace essai

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* octets, std::size_t taille) {
    essai::eprouver({reinterpret_cast<const char*>(octets), taille});
    return 0;
}
