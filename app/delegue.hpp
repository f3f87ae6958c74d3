// Le délégué de l'application : ce qui se passe au lancement, et quand la fenêtre se ferme. Il vit
// du début à la fin du processus et tient l'unique assistant. Fil principal.
#pragma once

#include "app/assistant.hpp"

#include <memory>

class Delegue {
public:
    // Installe le menu, ouvre le journal, montre l'assistant ; après un redémarrage que l'assistant
    // avait demandé, lance aussitôt l'analyse.
    void applicationDidFinishLaunching();

    static bool applicationShouldTerminateAfterLastWindowClosed() { return true; }

private:
    std::shared_ptr<Assistant> assistant_;
};
