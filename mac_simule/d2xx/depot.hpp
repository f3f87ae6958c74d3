// Le fichier etat/reception : le bilan du récepteur, que la bibliothèque D2XX simulée dépose et que
// tout autre lit, sans verrou. Il y est entre deux fois l'instant de son dépôt : un lecteur qui
// tombe au milieu d'une écriture le voit, et relit.
#pragma once

#include "mac_simule/d2xx/reception.hpp"

#include <string>
#include <utility>

namespace d2xx {

// Tient l'émetteur : tant que le dépôt vit, le verrou du fichier le refuse à tout autre processus.
class Depot {
public:
    // Absent quand un autre processus tient l'émetteur, ou que le fichier ne peut pas être écrit.
    static std::optional<Depot> prendre(const std::string& racine);
    ~Depot();

    Depot(Depot&& autre) noexcept : fichier_(std::exchange(autre.fichier_, -1)) {}

    Depot& operator=(Depot&&) = delete;

    // Un seul appel système.
    void deposer(const Reception& bilan) const;

private:
    explicit Depot(int fichier) : fichier_(fichier) {}

    int fichier_;
};

// Lit le fichier de réception d'une racine. Absente : aucun émetteur n'a encore été ouvert, ou le
// fichier n'est pas lisible. N'importe quel fil.
std::optional<Reception> lireReception(const std::string& racine);

} // namespace d2xx
