// Les faits du Mac simulé dont la bibliothèque dépend, lus dans etat/ à l'ouverture d'une session.
// Un fichier absent ou illisible vaut un fait absent.
#pragma once

#include "mac_simule/d2xx/puce.hpp"

#include <string>
#include <vector>

namespace d2xx {

// Racine donnée par LUMIVIA_MAC ; vide quand la variable manque : il n'y a alors aucun émetteur.
std::string racineDuMac();

// Fichiers de etat/usb qui décrivent une puce FTDI, dans l'ordre de leurs noms.
std::vector<std::string> emetteursBranches(const std::string& racine);

// Vrai quand un autre programme tient l'émetteur.
bool emetteurOccupe(const std::string& racine);

// etat/puce_dmx : `realiste`, ou `immediat` par défaut.
Puce::Modele modeleDePuce(const std::string& racine);

} // namespace d2xx
