// Le projecteur dessiné : une lyre de théâtre et son faisceau, qui éclairent avec le niveau reçu.
#pragma once

#include <QtWidgets/QWidget>

namespace banc {

class VueProjecteur : public QWidget {
public:
    VueProjecteur();

    // De 0 (éteint) à 1 (plein feu).
    void eclairer(double niveau);

protected:
    void paintEvent(QPaintEvent* evenement) override;

private:
    void peindreFaisceau(QPainter& peintre) const;
    void peindreLanterne(QPainter& peintre) const;

    double niveau_ = 0;
};

} // namespace banc
