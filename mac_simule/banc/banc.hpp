// La fenêtre « Mac simulé » : quatre panneaux sur la racine d'un Mac, et rien d'autre.
//
// Elle regarde le projecteur vingt-cinq fois par seconde, le reste quatre fois. Elle se ferme quand
// sa racine disparaît. Quand etat/demonstration/portrait_demande paraît, elle enregistre son image
// au chemin qu'il contient, puis retire la demande. Fil principal.
#pragma once

#include "mac_simule/faits/faits.hpp"

#include <QtWidgets/QMainWindow>

namespace banc {

class Panneau;

class Banc : public QMainWindow {
public:
    explicit Banc(const std::string& racine);

private:
    void suivre();
    void relireTout();
    void repondreAuPortrait();

    faits::Mac mac_;
    Panneau* projecteur_;
    QList<Panneau*> panneaux_;
};

} // namespace banc
