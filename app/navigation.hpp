// La règle centrale de l'assistant : dans quel ordre le Mac se prépare. Fonction pure.
#pragma once

#include "diagnostic/diagnostic.hpp"

// Ce qui vient de s'achever : une analyse, ou un changement fait au Mac (le
// retrait de l'ancien pilote, la désactivation de l'extension).
enum class Etape { analyse, changement };

enum class PageSuivante { analyse, brancher, extension, redemarrage, retrait, test };

// `d` : le Mac tel que l'étape le laisse ; `redemarrage` : il reste à redémarrer.
PageSuivante pageSuivante(Etape achevee, const Diagnostic& d, bool redemarrage);
