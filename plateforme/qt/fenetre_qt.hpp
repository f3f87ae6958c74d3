// La fenêtre de l'assistant sous Qt : une barre de menus, et dessous le contenu à la taille voulue.
#pragma once

#include "plateforme/qt/vue_native.hpp"

#include <QtWidgets/QMainWindow>

class QMenuBar;

namespace plateforme {

class FenetreQt : public QMainWindow {
public:
    FenetreQt(const QString& titre, QSize taille);

    QWidget* contenu() const { return contenu_; }

    void garder(const Vue& vue) { gardees_.push_back(vue); }

    std::function<void()> surFermeture;

protected:
    bool event(QEvent* evenement) override;
    void closeEvent(QCloseEvent* evenement) override;
    // Retour va au bouton par défaut, où que soit le clavier, quand personne ne l'a pris avant :
    // une liste ouverte s'en sert pour choisir.
    void keyPressEvent(QKeyEvent* evenement) override;
    // Le clavier va de haut en bas et de gauche à droite, quel que soit l'âge des boutons.
    bool focusNextPrevChild(bool suivant) override;

private:
    void declencherParDefaut();

    QWidget* contenu_ = nullptr;
    std::vector<Vue> gardees_;
};

// La barre de menus de l'application, telle que installerMenu l'a décrite.
QMenuBar* creerBarreDeMenus(QWidget* parent);

// Donne à une autre fenêtre les raccourcis de cette barre, qu'une alerte lui cacherait.
void donnerLesRaccourcis(QWidget& fenetre);

} // namespace plateforme
