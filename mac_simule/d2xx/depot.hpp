// Le fichier projeté etat/reception : le bilan du récepteur, que la bibliothèque D2XX simulée
// dépose et que tout autre lit, sans verrou. Les champs voyagent en mots atomiques entourés d'un
// numéro de séquence, impair pendant une écriture.
#pragma once

#include "mac_simule/d2xx/projection.hpp"
#include "mac_simule/d2xx/reception.hpp"

namespace d2xx {

// Tient l'émetteur : tant que le dépôt vit, le verrou du fichier le refuse à tout autre processus.
class Depot {
public:
    // Absent quand un autre processus tient l'émetteur, ou que le fichier ne peut pas être projeté.
    static std::optional<Depot> prendre(const std::string& racine);

    // Aucun appel système.
    void deposer(const Reception& bilan);

private:
    explicit Depot(std::unique_ptr<Projection> projection) : projection_(std::move(projection)) {}

    std::unique_ptr<Projection> projection_;
};

// Lit le fichier de réception d'une racine. Absente : aucun émetteur n'a encore été ouvert, ou le
// fichier n'est pas lisible. N'importe quel fil.
std::optional<Reception> lireReception(const std::string& racine);

} // namespace d2xx
