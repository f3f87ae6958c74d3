// Le paquet de l'application : « Assistant Lumivia.app/Contents/{MacOS,Resources,Frameworks,
// Info.plist} », de même forme sur Mac et sur le Mac simulé. Fil principal.
#pragma once

#include <optional>
#include <string>

namespace plateforme {

// Chemin du paquet lui-même, sans barre finale.
std::string cheminPaquet();

// Chemin d'une ressource du paquet ; absent quand elle n'y est pas.
[[nodiscard]] std::optional<std::string> cheminRessource(const std::string& nom,
                                                         const std::string& extension);

// Dossier des bibliothèques privées, sans barre finale ; absent quand le paquet n'en a pas.
[[nodiscard]] std::optional<std::string> cheminFrameworksPrives();

struct ValeurInfo {
    enum class Genre { absente, texte, autre };
    Genre genre = Genre::absente;
    std::string texte; // la valeur, ou sa forme écrite quand elle n'est pas un texte
};

// Valeur d'une clé d'Info.plist.
ValeurInfo valeurInfo(const std::string& cle);

} // namespace plateforme
