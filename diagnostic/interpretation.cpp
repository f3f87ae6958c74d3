#include "diagnostic/interpretation.hpp"

#include "support/utf8.hpp"

#include <algorithm>

namespace {

bool contient(std::string_view texte, std::string_view cherche) {
    return texte.find(cherche) != std::string_view::npos;
}

} // namespace

bool estPuceApple(std::string_view sortie) {
    return rogner(sortie) == "1";
}

bool nommeD2xxHelper(std::string_view listage, std::int64_t versionMajeure) {
    return contient(listage, versionMajeure > 10 ? "com.FTDI.driver.D2xxHelper" : "D2xxHelper");
}

EtatDext lireEtatDext(std::string_view listage) {
    EtatDext etat;
    while (!listage.empty()) {
        const std::string_view ligne = listage.substr(0, listage.find('\n'));
        listage.remove_prefix(std::min(ligne.size() + 1, listage.size()));
        if (contient(ligne, "com.ftdi.vcp.dext")) {
            etat.present = true;
            etat.actif = etat.actif || contient(ligne, "activated enabled");
        }
    }
    return etat;
}
