#include "plateforme/qt/style.hpp"

#include "plateforme/qt/apparence.hpp"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainterPath>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyleOption>

namespace plateforme {
namespace {

constexpr double kRayon = 7;
constexpr double kRayonArticle = 5;

constexpr int kHauteurMenuLocal = 30;
constexpr int kMargeTexte = 12;
constexpr int kPlaceChevron = 38; // la liste, large comme le bouton, a aussi sa coche

constexpr int kHauteurArticle = 24;
constexpr int kPlaceCoche = 26;
constexpr int kMargeArticle = 5;
constexpr int kEcartRaccourci = 28;

bool auClavier = false; // le dernier geste était d'y chercher un bouton

bool chercheUnBouton(int touche) {
    return touche == Qt::Key_Tab || touche == Qt::Key_Backtab || touche == Qt::Key_Alt ||
           (touche >= Qt::Key_Left && touche <= Qt::Key_Down);
}

void tracer(QPainter& peintre, const QPainterPath& trait, const QColor& couleur) {
    peintre.setBrush(Qt::NoBrush);
    peintre.setPen(QPen(couleur, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    peintre.drawPath(trait);
}

// Deux pointes, vers le haut et vers le bas : un choix parmi plusieurs.
void peindreChevron(QPainter& peintre, const QRect& place, const QColor& couleur) {
    const QPointF milieu(place.right() - kMargeTexte - 1.5, place.top() + place.height() / 2.0);
    QPainterPath pointes;
    for (const double sens : {-1.0, 1.0}) {
        pointes.moveTo(milieu + QPointF(-3.5, sens * 2.5));
        pointes.lineTo(milieu + QPointF(0, sens * 6));
        pointes.lineTo(milieu + QPointF(3.5, sens * 2.5));
    }
    tracer(peintre, pointes, couleur);
}

void peindreCoche(QPainter& peintre, const QRect& place, const QColor& couleur) {
    const QPointF milieu(place.left() + kPlaceCoche / 2.0 + 2, place.top() + place.height() / 2.0);
    QPainterPath coche(milieu + QPointF(-4, 0.5));
    coche.lineTo(milieu + QPointF(-1.2, 3.5));
    coche.lineTo(milieu + QPointF(4, -3.5));
    tracer(peintre, coche, couleur);
}

void peindreMenuLocal(QPainter& peintre, const QStyleOptionComboBox& option, bool anneau) {
    const CouleursBouton couleurs =
        couleursBouton(false, option.state.testFlag(QStyle::State_Sunken));
    peindreBouton(peintre, option.rect, couleurs, anneau);
    peindreChevron(peintre, option.rect, couleurs.texte);
}

void peindreSurbrillance(QPainter& peintre, const QRect& place, const QPalette& palette) {
    peintre.setPen(Qt::NoPen);
    peintre.setBrush(palette.highlight());
    peintre.drawRoundedRect(place, kRayonArticle, kRayonArticle);
}

void peindreArticle(QPainter& peintre, const QStyleOptionMenuItem& option) {
    const bool designe = option.state.testFlag(QStyle::State_Selected);
    peintre.fillRect(option.rect, option.palette.base());
    if (designe) {
        peindreSurbrillance(peintre, option.rect.adjusted(kMargeArticle, 0, -kMargeArticle, 0),
                            option.palette);
    }
    const auto encre = [&](QPalette::ColorRole repos) {
        return option.palette.color(designe ? QPalette::HighlightedText : repos);
    };
    if (option.checked) {
        peindreCoche(peintre, option.rect, encre(QPalette::Text));
    }
    const QStringList parties = option.text.split(u'\t');
    const QRect place = option.rect.adjusted(kPlaceCoche, 0, -kMargeTexte - kMargeArticle, 0);
    peintre.setFont(option.font);
    peintre.setPen(encre(QPalette::Text));
    peintre.drawText(place, Qt::AlignVCenter | Qt::AlignLeft, parties.front());
    if (parties.size() > 1) {
        peintre.setPen(encre(kRoleTexteSecondaire));
        peintre.drawText(place, Qt::AlignVCenter | Qt::AlignRight, parties.back());
    }
}

void peindreTitreDeMenu(QPainter& peintre, const QStyleOptionMenuItem& option) {
    const bool ouvert = option.state.testFlag(QStyle::State_Selected);
    peintre.fillRect(option.rect, option.palette.window());
    if (ouvert) {
        peindreSurbrillance(peintre, option.rect.adjusted(0, 2, 0, -2), option.palette);
    }
    peintre.setPen(option.palette.color(ouvert ? QPalette::HighlightedText : QPalette::WindowText));
    peintre.drawText(option.rect, Qt::AlignCenter, option.text);
}

// Le fond d'un menu, puis son bord, que sa liste ne recouvre pas.
void peindrePanneau(QPainter& peintre, const QStyleOption& option, bool fond) {
    peintre.setPen(couleursBouton(false, false).bord);
    peintre.setBrush(fond ? option.palette.base() : QBrush(Qt::NoBrush));
    peintre.drawRect(option.rect.adjusted(0, 0, -1, -1));
}

} // namespace

void peindreBouton(QPainter& peintre, const QRect& place, const CouleursBouton& couleurs,
                   bool anneau) {
    const QRectF cadre = QRectF(place).adjusted(0.5, 0.5, -0.5, -0.5);
    peintre.setPen(couleurs.bord);
    peintre.setBrush(couleurs.fond);
    peintre.drawRoundedRect(cadre, kRayon, kRayon);
    if (anneau) {
        const double retrait = kAnneau - 0.5;
        peintre.setPen(QPen(couleurs.anneau, 2));
        peintre.setBrush(Qt::NoBrush);
        peintre.drawRoundedRect(cadre.adjusted(retrait, retrait, -retrait, -retrait),
                                kRayon - retrait, kRayon - retrait);
    }
}

bool porteLAnneau(const QWidget& vue) {
    return auClavier && vue.hasFocus();
}

StyleAssistant::StyleAssistant() : QProxyStyle(QStringLiteral("Fusion")) {}

bool StyleAssistant::eventFilter(QObject* /*objet*/, QEvent* evenement) {
    const bool avant = auClavier;
    if (evenement->type() == QEvent::MouseButtonPress) {
        auClavier = false;
    } else if (evenement->type() == QEvent::KeyPress &&
               chercheUnBouton(static_cast<QKeyEvent*>(evenement)->key())) {
        auClavier = true;
    }
    if (QWidget* porteur = QApplication::focusWidget(); porteur != nullptr && auClavier != avant) {
        porteur->update();
    }
    return false;
}

void StyleAssistant::drawComplexControl(ComplexControl controle, const QStyleOptionComplex* option,
                                        QPainter* peintre, const QWidget* vue) const {
    if (controle != CC_ComboBox) {
        QProxyStyle::drawComplexControl(controle, option, peintre, vue);
        return;
    }
    peintre->save();
    peintre->setRenderHint(QPainter::Antialiasing);
    peindreMenuLocal(*peintre, *qstyleoption_cast<const QStyleOptionComboBox*>(option),
                     vue != nullptr && porteLAnneau(*vue));
    peintre->restore();
}

void StyleAssistant::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                   QPainter* peintre, const QWidget* vue) const {
    if (element == PE_PanelMenu || element == PE_FrameMenu || element == PE_Frame) {
        peindrePanneau(*peintre, *option, element == PE_PanelMenu);
    } else {
        QProxyStyle::drawPrimitive(element, option, peintre, vue);
    }
}

void StyleAssistant::drawControl(ControlElement element, const QStyleOption* option,
                                 QPainter* peintre, const QWidget* vue) const {
    const auto* article = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    const auto* choix = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    peintre->save();
    peintre->setRenderHint(QPainter::Antialiasing);
    if (element == CE_MenuItem && article != nullptr) {
        peindreArticle(*peintre, *article);
    } else if (element == CE_MenuBarItem && article != nullptr) {
        peindreTitreDeMenu(*peintre, *article);
    } else if (element == CE_ComboBoxLabel && choix != nullptr) {
        peintre->setPen(couleursBouton(false, false).texte);
        peintre->drawText(choix->rect.adjusted(kMargeTexte, 0, -kPlaceChevron, 0),
                          Qt::AlignVCenter | Qt::AlignLeft, choix->currentText);
    } else {
        QProxyStyle::drawControl(element, option, peintre, vue);
    }
    peintre->restore();
}

QSize StyleAssistant::sizeFromContents(ContentsType genre, const QStyleOption* option,
                                       const QSize& contenu, const QWidget* vue) const {
    if (genre == CT_ComboBox) {
        return {contenu.width() + kMargeTexte + kPlaceChevron, kHauteurMenuLocal};
    }
    const auto* article = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (genre == CT_MenuItem && article != nullptr) {
        const QString texte = QString(article->text).remove(u'\t');
        const int raccourci = article->text.contains(u'\t') ? kEcartRaccourci : 0;
        return {kPlaceCoche + article->fontMetrics.horizontalAdvance(texte) + raccourci +
                    kMargeTexte + kMargeArticle,
                kHauteurArticle};
    }
    return QProxyStyle::sizeFromContents(genre, option, contenu, vue);
}

int StyleAssistant::pixelMetric(PixelMetric mesure, const QStyleOption* option,
                                const QWidget* vue) const {
    switch (mesure) {
    case PM_MenuBarHMargin:
        return 26; // le premier titre s'aligne sur ceux des pages
    case PM_MenuBarVMargin:
        return 3;
    case PM_MenuVMargin:
        return 5;
    case PM_MenuPanelWidth:
        return 1;
    default:
        return QProxyStyle::pixelMetric(mesure, option, vue);
    }
}

} // namespace plateforme
