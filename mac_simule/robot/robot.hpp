// Le robot conduit la véritable fenêtre sans personne : une page paraît, il en fait les gestes, et
// la suivante vient. Fil principal.
#pragma once

namespace robot {

// Sans effet quand LUMIVIA_GESTES ne dit pas les gestes (gestes.hpp). LUMIVIA_DEMONSTRATION est le
// dossier où vont une image et la transcription de chaque page, puis le journal et le rapport ;
// sans elle, le robot dit sur la sortie standard ce qu'il rencontre et ce qu'il fait, et vit une
// minute au plus (code 3). Quand la page ne change plus (deux minutes, ou les secondes de
// LUMIVIA_PATIENCE), il le dit en une phrase et l'assistant finit (code 1).
void demarrer();

} // namespace robot
