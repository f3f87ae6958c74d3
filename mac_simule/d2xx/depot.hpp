// Dépose le bilan du récepteur dans le fichier projeté etat/reception, et tient l'émetteur : tant
// que le dépôt vit, le verrou du fichier refuse l'émetteur à tout autre processus.
#pragma once

#include "mac_simule/d2xx/reception.hpp"

#include <memory>

namespace d2xx {

class Depot {
public:
    // Nul quand un autre processus tient l'émetteur, ou que le fichier ne peut pas être projeté.
    static std::unique_ptr<Depot> prendre(const std::string& racine);
    ~Depot();
    Depot(const Depot&) = delete;
    Depot& operator=(const Depot&) = delete;

    // Aucun appel système.
    void deposer(Reception bilan, bool ouverte);

private:
    Depot(int fichier, ReceptionPartagee* partagee) : fichier_(fichier), partagee_(partagee) {}

    int fichier_;
    ReceptionPartagee* partagee_;
};

} // namespace d2xx
