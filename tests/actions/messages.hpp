// Les messages du journal, sans leur date.
#pragma once

#include "support/journal.hpp"

namespace essai {

using Messages = std::vector<std::string>;

inline Messages messages() {
    Messages lus;
    for (const std::string& ligne : Journal::shared().lignes()) {
        lus.push_back(ligne.substr(ligne.find("] ") + 2));
    }
    return lus;
}

} // namespace essai
