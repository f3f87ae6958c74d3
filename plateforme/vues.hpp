// Les vues dont l'assistant est fait : fenêtre, piles, étiquettes, boutons, menu local, images.
//
// Une Vue est une poignée partagée : la copier désigne la même vue native. Une pile garde ses
// sous-vues en vie ; une vue retirée d'une pile et que personne d'autre ne tient disparaît, après
// la fin de l'action en cours si c'est son bouton qui l'a demandé. Dimensions en points (un point
// est un pixel logique). Fil principal partout.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace plateforme {

struct VueNative; // une vue du système et ce qui doit vivre avec elle

class Vue {
public:
    explicit Vue(std::shared_ptr<VueNative> native) : native_(std::move(native)) {}

    VueNative& native() const { return *native_; }

private:
    std::shared_ptr<VueNative> native_;
};

enum class Orientation { horizontale, verticale };

// Vue vide qui prend la place libre de sa pile dans cette direction.
Vue espace(Orientation direction);

class Etiquette : public Vue {
public:
    static Etiquette simple(const std::string& texte);     // une ligne
    static Etiquette multiligne(const std::string& texte); // va à la ligne, texte sélectionnable

    void setTexte(const std::string& texte) const;
    void setPolice(double taille, bool gras) const;
    void setCouleurSecondaire() const;
    void setLargeurMaximale(double largeur) const; // largeur où le texte va à la ligne

private:
    using Vue::Vue;
};

class Bouton : public Vue {
public:
    // Bouton arrondi de taille ordinaire. L'action peut faire disparaître le bouton.
    Bouton(const std::string& titre, std::function<void()> action);

    void setParDefaut() const; // répond à la touche Retour, où que soit le clavier
    void setPetit() const;
};

class MenuLocal : public Vue {
public:
    // Menu dont le premier article est choisi ; `choix` reçoit l'index de l'article retenu.
    MenuLocal(const std::vector<std::string>& articles, std::function<void(int)> choix);

    int index() const; // -1 : aucun
};

struct TailleImage {
    double largeur = 0;
    double hauteur = 0;
};

class VueImage : public Vue {
public:
    // Absente quand le fichier manque ou n'est pas une image. `description` est lue par les aides à
    // l'accessibilité.
    [[nodiscard]] static std::optional<VueImage> lire(const std::string& chemin,
                                                      const std::string& description);

    TailleImage tailleImage() const;
    void imposerTaille(double largeur, double hauteur) const; // l'image garde ses proportions

private:
    using Vue::Vue;
};

class Pile : public Vue {
public:
    explicit Pile(Orientation orientation);

    void setEspacement(double espacement) const;
    void alignerAuDebut() const; // pile verticale : bords de tête
    void alignerEnHaut() const;  // pile horizontale : bords du haut
    void setMarges(double haut, double gauche, double bas, double droite) const;
    void ajouter(const Vue& vue) const;
    void vider() const;
};

class Fenetre {
public:
    // Fenêtre titrée, que l'on peut fermer et réduire mais pas redimensionner ; encore invisible.
    Fenetre(const std::string& titre, double largeur, double hauteur);

    // Pose la pile bord à bord. Chaque vue de `pleineLargeur` prend la largeur de la pile moins
    // `retrait`.
    void poser(const Pile& pile, const std::vector<Vue>& pleineLargeur, double retrait);
    void centrer();
    void montrer(); // affiche la fenêtre devant les autres, avec le clavier
    // Appelée quand l'utilisateur ferme la fenêtre, avant qu'elle ne disparaisse.
    void surFermeture(std::function<void()> action);

private:
    struct Native;
    std::shared_ptr<Native> native_;
};

} // namespace plateforme
