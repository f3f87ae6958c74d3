// Le Mac simulé vu de l'adaptateur : sa racine et les petits fichiers de son état.
//
// La racine vient de la variable LUMIVIA_MAC. Sans elle, tout ce qu'un Mac possède est absent.
// N'importe quel fil.
#pragma once

#include <optional>
#include <string>

namespace plateforme::mac_simule {

const std::string& racine();

// Chemin réel d'un fichier de l'état, par exemple « version » ou « usb ».
std::string cheminEtat(const std::string& nom);

// Première ligne d'un fichier de l'état ; absente quand il manque.
std::optional<std::string> etat(const std::string& nom);

bool ecrireEtat(const std::string& nom, const std::string& valeur);

// De combien le temps des minuteurs est accéléré (1 : le temps ordinaire).
double vitesseHorloge();

} // namespace plateforme::mac_simule
