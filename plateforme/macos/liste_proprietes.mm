#include "plateforme/liste_proprietes.hpp"
#include "plateforme/macos/textes.hpp"
#include "plateforme/posix/texte_xml.hpp"

namespace plateforme {
namespace {

id objetPour(bool valeur) { return @(valeur); }

id objetPour(const std::string& valeur) { return macos::versNSString(valeur); }

id objetPour(const std::vector<std::string>& valeurs) {
    NSMutableArray* liste = [NSMutableArray array];
    for (const std::string& valeur : valeurs) {
        [liste addObject:macos::versNSString(valeur)];
    }
    return liste;
}

} // namespace

ListeSerialisee serialiserListe(const DictionnairePropriete& dictionnaire) {
    // NSPropertyListSerialization les écrit sans se plaindre, et ne saurait plus les relire.
    if (const auto refus = refusXML(dictionnaire)) {
        return *refus;
    }
    @autoreleasepool {
        NSMutableDictionary* objets = [NSMutableDictionary dictionary];
        for (const auto& [cle, valeur] : dictionnaire) {
            id objet = std::visit([](const auto& v) { return objetPour(v); }, valeur);
            [objets setObject:objet forKey:macos::versNSString(cle)];
        }
        NSError* erreur = nil;
        NSData* donnees =
            [NSPropertyListSerialization dataWithPropertyList:objets
                                                       format:NSPropertyListXMLFormat_v1_0
                                                      options:0
                                                        error:&erreur];
        if (donnees == nil) {
            return {std::nullopt, macos::versTexte(erreur.localizedDescription)};
        }
        return {std::string(static_cast<const char*>(donnees.bytes), donnees.length), {}};
    }
}

} // namespace plateforme
