// L'identité de l'application : le seul endroit où l'identifiant du paquet est écrit.
// La construction le lit ici pour Info.plist ; l'agent de relance en tire son étiquette.
#pragma once

namespace plateforme {

inline constexpr const char* kIdentifiantPaquet = "fr.voltaris.assistant-lumivia";
inline constexpr const char* kNomApplication = "Assistant Lumivia";

} // namespace plateforme
