// La démonstration : conduit la vraie fenêtre sans personne, par les titres des boutons, et prend
// une image de chaque page. Fil principal.
#pragma once

namespace plateforme {

// Commence, si la variable LUMIVIA_DEMONSTRATION nomme le dossier des images.
void demarrerDemonstration();

} // namespace plateforme
