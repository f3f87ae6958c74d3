// L'allure des boutons, du menu local et des menus sous Linux. Fil principal.
#pragma once

#include <QtGui/QPainter>
#include <QtWidgets/QProxyStyle>

namespace plateforme {

// La place de l'anneau de clavier, à l'intérieur du bord d'un bouton.
inline constexpr int kAnneau = 3;

struct CouleursBouton;

// Le fond et le bord arrondis d'un bouton, et l'anneau de celui où est le clavier.
void peindreBouton(QPainter& peintre, const QRect& place, const CouleursBouton& couleurs,
                   bool anneau);

// Vrai quand cette vue a le clavier et que c'est de lui que l'on se sert : après un clic, l'anneau
// ne désignerait rien d'utile.
bool porteLAnneau(const QWidget& vue);

// Fusion, dont le menu local et les menus prennent l'allure de nos boutons.
class StyleAssistant : public QProxyStyle {
public:
    StyleAssistant();

    // Pour toute l'application : il y suit les gestes qui montrent et cachent l'anneau.
    bool eventFilter(QObject* objet, QEvent* evenement) override;

    void drawComplexControl(ComplexControl controle, const QStyleOptionComplex* option,
                            QPainter* peintre, const QWidget* vue) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* peintre,
                       const QWidget* vue) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* peintre,
                     const QWidget* vue) const override;
    QSize sizeFromContents(ContentsType genre, const QStyleOption* option, const QSize& contenu,
                           const QWidget* vue) const override;
    int pixelMetric(PixelMetric mesure, const QStyleOption* option,
                    const QWidget* vue) const override;
};

} // namespace plateforme
