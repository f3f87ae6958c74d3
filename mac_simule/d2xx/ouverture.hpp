// Un émetteur ouvert : la puce, sa ligne, le récepteur au bout, et les traces qu'ils laissent.
// Un seul fil à la fois ; l'appareil y veille.
#pragma once

#include "mac_simule/d2xx/branchement.hpp"
#include "mac_simule/d2xx/depot.hpp"
#include "mac_simule/d2xx/ftd2xx.hpp"
#include "mac_simule/d2xx/puce.hpp"
#include "mac_simule/d2xx/releve.hpp"

namespace d2xx {

class Ouverture {
public:
    // `emetteur` : le fichier qui le décrit.
    Ouverture(const std::string& emetteur, Puce::Modele modele, Depot depot);
    ~Ouverture();

    [[nodiscard]] bool debranchee() { return branchement_.rompu(); }

    [[nodiscard]] const Ligne& ligne() const { return ligne_; }

    // Ceux-ci rendent 4 quand l'émetteur a été débranché, et ne touchent plus la ligne.
    Statut regler(const Ligne& voulue);
    Statut basculer(bool enBreak);
    Statut ecrire(std::span<const std::uint8_t> octets);

private:
    // Fait passer une commande ; rend l'instant où elle a agi, ou rien sans émetteur.
    std::optional<Nanosecondes> commander();
    void compter(const std::optional<Trame>& trame);

    Branchement branchement_;
    Puce puce_;
    Ligne ligne_;
    Recepteur recepteur_;
    Compteur compteur_;
    Depot depot_;
    Releve releve_;
};

} // namespace d2xx
