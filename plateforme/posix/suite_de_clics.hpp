// Le second appui d'un double clic tombe sur le bouton qui a pris la place du premier, quand une
// page remplace l'autre entre les deux : il ne lui est pas destiné. Réservé à plateforme/.
#pragma once

namespace plateforme {

// Les clics que reçoit un bouton. Un seul fil à la fois.
class SuiteDeClics {
public:
    // `rang` : le numéro du clic parmi ceux que le système juge assez rapprochés pour les compter
    // ensemble, à partir de 1. Faux quand les précédents de sa suite n'étaient pas pour ce bouton.
    bool accepte(long rang) {
        if (rang > dernier_ + 1) {
            return false;
        }
        dernier_ = rang;
        return true;
    }

private:
    long dernier_ = 0;
};

} // namespace plateforme
