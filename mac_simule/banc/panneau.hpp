// Un panneau du banc : une carte, son titre, une colonne. Chacun relit la racine quand on le lui
// demande, et n'a pas d'autre mémoire.
#pragma once

#include "mac_simule/banc/racine.hpp"

#include <QtWidgets/QWidget>

class QVBoxLayout;

namespace banc {

class Panneau : public QWidget {
public:
    Panneau(const QString& titre, Racine racine);

    virtual void relire() = 0;

protected:
    [[nodiscard]] const Racine& racine() const { return racine_; }

    [[nodiscard]] QVBoxLayout* colonne() const { return colonne_; }

    void paintEvent(QPaintEvent* evenement) override;

private:
    Racine racine_;
    QVBoxLayout* colonne_;
};

} // namespace banc
