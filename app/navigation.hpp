// La règle centrale de l'assistant : dans quel ordre le Mac se prépare. Fonction pure.
#pragma once

#include "diagnostic/diagnostic.hpp"

enum class PageSuivante { redemarrage, retrait, extension, test, brancher };

PageSuivante pageSuivante(const Diagnostic& d, bool redemarrageEnAttente);
