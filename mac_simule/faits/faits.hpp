// Les faits d'un Mac simulé : les petits fichiers de son dossier etat/, lus et changés d'une seule
// façon par tout ce qui s'y tient. N'importe quel fil ; un fait absent ou illisible n'est pas là.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace faits {

class Mac {
public:
    explicit Mac(std::string racine) : racine_(std::move(racine)) {}

    // Celui que nomme la variable LUMIVIA_MAC ; sans elle, un Mac où rien n'existe.
    static const Mac& duProcessus();

    [[nodiscard]] const std::string& racine() const { return racine_; }

    // Chemin réel d'un fait, par exemple « version » ou « usb/emetteur-1 ».
    [[nodiscard]] std::string chemin(const std::string& fait) const;

    [[nodiscard]] bool present(const std::string& fait) const;

    // Tout le fichier ; absent : un texte vide.
    [[nodiscard]] std::string texte(const std::string& fait) const;

    // Sa première ligne.
    [[nodiscard]] std::optional<std::string> lire(const std::string& fait) const;

    // Les faits d'un dossier de etat/, dans l'ordre de leurs noms.
    [[nodiscard]] std::vector<std::string> noms(const std::string& dossier) const;

    // Remplace le fichier d'un coup : personne n'en lit la moitié. Faux quand le disque refuse.
    [[nodiscard]] bool ecrire(const std::string& fait, const std::string& texte) const;

private:
    std::string racine_;
};

// Un appareil USB, tel que le décrit un fait de usb/ : une ligne « clé valeur » par propriété.
struct Peripherique {
    std::uint32_t fabricant = 0; // identifiants USB, écrits en hexadécimal
    std::uint32_t produit = 0;
    std::optional<std::string>
        serie; // absente aussi quand l'appareil en donne une qui n'est pas un texte
};

Peripherique lirePeripherique(const std::string& texte);

} // namespace faits
