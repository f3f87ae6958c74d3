// Ce que veulent dire les réponses des outils du Mac. Fonctions pures : le texte seul décide,
// jamais le statut de l'outil.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Réponse à « sysctl -n hw.optional.arm64 » : un processeur Intel répond par un message d'erreur.
bool estPuceApple(std::string_view sortie);

// Vrai quand le listage des extensions du noyau nomme D2xxHelper : par son identifiant complet dans
// kmutil (macOS 11 et suivants), par son nom dans kextstat.
bool nommeD2xxHelper(std::string_view listage, std::int64_t versionMajeure);

struct EtatDext {
    bool present = false;
    bool actif = false;
};

// État de l'extension DriverKit de FTDI dans « systemextensionsctl list ». Plusieurs lignes peuvent
// la nommer, une ancienne version en cours de retrait par exemple : une seule active suffit.
EtatDext lireEtatDext(std::string_view listage);
