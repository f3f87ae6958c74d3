// Les messages du journal, sans leur date.
#pragma once

#include "support/journal.hpp"

#include <algorithm>

namespace essai {

using Messages = std::vector<std::string>;

inline Messages messages() {
    Messages lus;
    for (const std::string& ligne : Journal::shared().lignes()) {
        lus.push_back(ligne.substr(ligne.find("] ") + 2));
    }
    return lus;
}

// Combien commencent ainsi.
inline std::ptrdiff_t compter(const std::string& debut) {
    const Messages lus = messages();
    return std::count_if(lus.begin(), lus.end(),
                         [&](const std::string& lu) { return lu.rfind(debut, 0) == 0; });
}

} // namespace essai
