// Un scénario : le Mac de départ que décrit un fichier scenarios/NOM.scenario.
//
// La lecture est une fonction de son texte seul : ni fichier, ni horloge, ni exception. Le texte
// peut être n'importe quoi ; ce qui ne se lit pas donne une phrase, jamais un Mac à moitié décrit.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace mac_simule {

// Un périphérique USB. Au plus l'un des deux numéros est donné ; `serieNombre` est une propriété
// qui n'est pas un texte, comme certains appareils en ont.
struct Peripherique {
    std::string fabricant;
    std::string produit;
    std::string serie;
    std::string serieNombre;
};

struct KextChargee {
    std::string identifiant;
    std::string version;
    std::string chemin;
};

struct Geste {
    std::string page;
    std::string bouton;
};

struct Scenario {
    std::string description; // le commentaire de la première ligne
    std::string version = "14.5.0";
    std::string puce = "apple";
    std::string modele = "Mac14,2";
    std::string utilisateur = "regie";
    std::string compte = "administrateur";
    std::vector<Peripherique> peripheriques;
    std::vector<std::string> kexts;
    std::vector<KextChargee> chargees;
    std::string extensionFtdi; // vide, « active » ou « desactivee »
    std::string motDePasse = "lumivia";
    std::vector<std::string> frappe; // vide : la personne tape le bon mot de passe
    std::string kmutil = "confirme";
    std::string puceDmx = "immediat";
    std::string vitesseHorloge = "1";
    bool terminalFerme = false;
    bool emetteurOccupe = false;
    bool bibliothequeAbsente = false; // le paquet de l'assistant a perdu sa bibliothèque D2XX
    bool relanceImpossible = false;
    std::vector<Geste> gestes;
    std::string fin = "Tout fonctionne 🎉";

    int versionMajeure() const;
};

// Le scénario, ou la phrase qui dit à quelle ligne et pourquoi il ne se lit pas.
std::variant<Scenario, std::string> lireScenario(std::string_view texte);

// Peut nommer un dossier de /Users. L'apostrophe est refusée : le chemin du dossier personnel est
// inséré tel quel, entre apostrophes, dans le script de retrait.
bool nomUtilisateurValide(std::string_view nom);

} // namespace mac_simule
