// Ce dont un Mac simulé est fait, et ce qui manque à celui que l'on a abîmé.
#pragma once

#include <array>
#include <filesystem>
#include <string>

namespace mac_simule {

// Les dossiers qu'un Mac neuf reçoit de sa création, hors du dossier personnel et des faits.
inline constexpr std::array kDossiersDuMac{
    "Applications",       "Library/Application Support",
    "Library/Extensions", "private/tmp",
    "private/var/log",    "etat/usb",
    "etat/debranches",    "etat/fenetres",
};

// Pourquoi rien ne peut vivre dans `racine`, en une phrase : ce n'est pas un Mac simulé, ou il lui
// manque un dossier, un outil, un fait dont tout dépend. Vide quand le Mac est entier. Un outil
// privé du droit d'être exécuté est en panne, il ne manque pas. Ne lève aucune exception.
std::string defautDuMac(const std::filesystem::path& racine);

} // namespace mac_simule
