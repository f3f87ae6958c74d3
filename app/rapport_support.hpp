// Le texte du rapport que l'utilisateur envoie au support. Fonction pure.
#pragma once

#include <string>
#include <vector>

std::string rapportSupport(const std::string& rapportDiagnostic,
                           const std::vector<std::string>& lignesJournal);
