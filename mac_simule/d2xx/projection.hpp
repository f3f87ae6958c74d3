// Un fichier projeté en mémoire : ce qu'on y écrit part sans appel système.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

namespace d2xx {

class Projection {
public:
    // Donne au fichier ouvert son verrou ou sa longueur ; faux quand le système refuse.
    using Preparation = bool (*)(int fichier);

    // Ouvre le fichier comme `open` le ferait de ces drapeaux, le prépare, puis en projette le
    // début. Nulle quand l'un des trois est refusé.
    static std::unique_ptr<Projection> ouvrir(const std::string& chemin, int drapeaux,
                                              std::size_t taille, Preparation preparer);
    ~Projection();
    Projection(const Projection&) = delete;
    Projection& operator=(const Projection&) = delete;

    [[nodiscard]] void* debut() const { return debut_; }

    [[nodiscard]] int fichier() const { return fichier_; }

private:
    Projection(int fichier, void* debut, std::size_t taille)
        : fichier_(fichier), debut_(debut), taille_(taille) {}

    int fichier_;
    void* debut_;
    std::size_t taille_;
};

} // namespace d2xx
