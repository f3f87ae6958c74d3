// Propriétaire d'un descripteur de fichier. Réservé à plateforme/.
#pragma once

#include <cerrno>
#include <string_view>
#include <sys/types.h>
#include <unistd.h>
#include <utility>

namespace plateforme::natif {

class Descripteur {
public:
    explicit Descripteur(int numero) : numero_(numero) {}

    Descripteur(Descripteur&& autre) noexcept : numero_(std::exchange(autre.numero_, -1)) {}

    Descripteur(const Descripteur&) = delete;
    Descripteur& operator=(const Descripteur&) = delete;
    Descripteur& operator=(Descripteur&&) = delete;

    ~Descripteur() { fermer(); }

    int numero() const { return numero_; }

    bool ouvert() const { return numero_ >= 0; }

    // Faux quand la fermeture révèle une écriture perdue.
    bool fermer() { return numero_ < 0 || ::close(std::exchange(numero_, -1)) == 0; }

private:
    int numero_;
};

// Reprend un appel interrompu par un signal.
template <typename Appel>
auto sansInterruption(Appel appel) {
    auto resultat = appel();
    while (resultat == -1 && errno == EINTR) {
        resultat = appel();
    }
    return resultat;
}

// Écrit tout, ou rend faux (errno).
inline bool ecrireTout(int descripteur, std::string_view octets) {
    while (!octets.empty()) {
        const ssize_t ecrits =
            sansInterruption([&] { return ::write(descripteur, octets.data(), octets.size()); });
        if (ecrits < 0) {
            return false;
        }
        octets.remove_prefix(static_cast<std::size_t>(ecrits));
    }
    return true;
}

} // namespace plateforme::natif
