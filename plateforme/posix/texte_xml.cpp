#include "plateforme/posix/texte_xml.hpp"

#include <algorithm>

namespace plateforme {
namespace {

bool estEcrivable(bool) {
    return true;
}

bool estEcrivable(const std::string& texte) {
    const bool sansCommande = std::all_of(texte.begin(), texte.end(), [](char c) {
        return static_cast<unsigned char>(c) >= 0x20 || c == '\t' || c == '\n' || c == '\r';
    });
    return sansCommande && texte.find("\xEF\xBF\xBE") == std::string::npos &&
           texte.find("\xEF\xBF\xBF") == std::string::npos;
}

bool estEcrivable(const std::vector<std::string>& textes) {
    return std::all_of(textes.begin(), textes.end(),
                       [](const std::string& texte) { return estEcrivable(texte); });
}

} // namespace

std::optional<ListeSerialisee> refusXML(const DictionnairePropriete& dictionnaire) {
    for (const auto& [cle, valeur] : dictionnaire) {
        if (!estEcrivable(cle) ||
            !std::visit([](const auto& v) { return estEcrivable(v); }, valeur)) {
            return ListeSerialisee{std::nullopt,
                                   "Un caractère de la liste de propriétés ne s'écrit pas en XML."};
        }
    }
    return std::nullopt;
}

} // namespace plateforme
