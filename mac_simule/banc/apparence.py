# L'aspect du banc : ses couleurs, claires ou sombres, ses textes, ses interrupteurs, son projecteur.

import os

from PyQt6.QtCore import QPointF, QRectF, Qt
from PyQt6.QtGui import (QColor, QFont, QLinearGradient, QPainter, QPainterPath, QPalette, QPen,
                         QPolygonF, QRadialGradient)
from PyQt6.QtWidgets import QAbstractButton, QApplication, QLabel, QSizePolicy, QWidget

# La teinte claire, puis la sombre. Texte discret : contraste d'au moins 4,5 sur la carte et sur la
# fenêtre.
TEINTES = {
    "fenetre": ("#f1f1f3", "#242426"),
    "carte": ("#ffffff", "#303033"),
    "bord": ("#dcdce0", "#454549"),
    "texte": ("#1d1d1f", "#f4f4f5"),
    "discret": ("#62626a", "#b0b0b6"),
    "accent": ("#0a66d8", "#3d8bf2"),
    "repos": ("#8e8e96", "#83838b"),  # interrupteur coupé
    "bon": ("#1d7a3c", "#56c67c"),
    "mauvais": ("#b3341f", "#ff8a75"),
    "scene": ("#16171c", "#101114"),  # le fond sur lequel le projecteur éclaire
}


def couleur(teinte):
    sombre = QApplication.palette().color(QPalette.ColorRole.Window).lightness() < 128
    return QColor(TEINTES[teinte][sombre])


# Style, police et palette de toute l'application. LUMIVIA_APPARENCE (clair, sombre) l'emporte sur le
# bureau.
def habiller():
    QApplication.setStyle("Fusion")
    if voulue := os.environ.get("LUMIVIA_APPARENCE"):
        # Cette palette dit de quel côté sont les teintes ; la leur vient aussitôt après.
        fond = Qt.GlobalColor.black if voulue == "sombre" else Qt.GlobalColor.white
        QApplication.setPalette(QPalette(fond))
    palette, role = QPalette(couleur("carte"), couleur("fenetre")), QPalette.ColorRole
    palette.setColor(role.Base, couleur("carte"))
    palette.setColor(role.Highlight, couleur("accent"))
    for texte in (role.WindowText, role.Text, role.ButtonText):
        palette.setColor(texte, couleur("texte"))
        palette.setColor(QPalette.ColorGroup.Disabled, texte, couleur("discret"))
    QApplication.setPalette(palette)
    police = QFont()
    police.setFamilies(["Inter", "Noto Color Emoji"])
    police.setPixelSize(13)
    QApplication.setFont(police)


def colorer(label, teinte):
    palette = label.palette()
    palette.setColor(QPalette.ColorRole.WindowText, couleur(teinte))
    label.setPalette(palette)


# Le ton : « titre », « courant » ou « discret ».
def etiquette(ton, texte=""):
    label = QLabel(texte)
    label.setWordWrap(True)
    police = label.font()
    if ton == "titre":
        police.setPixelSize(15)
        police.setWeight(QFont.Weight.DemiBold)
    elif ton == "discret":
        colorer(label, "discret")
        police.setPixelSize(12)
    label.setFont(police)
    return label


# Un interrupteur à bascule, comme ceux des Réglages d'un Mac : son libellé à gauche, lui à droite.
class Interrupteur(QAbstractButton):
    LARGEUR, HAUTEUR = 38, 22

    def __init__(self, agir, libelle=""):
        super().__init__()
        self.anneau = False
        self.setText(libelle)
        self.setCheckable(True)
        self.setCursor(Qt.CursorShape.PointingHandCursor)
        self.setFixedHeight(self.HAUTEUR + 6)
        self.clicked.connect(agir)

    # L'anneau est pour qui se sert du clavier. Une fenêtre qui revient devant n'y change rien.
    def focusInEvent(self, evenement):
        if evenement.reason() != Qt.FocusReason.ActiveWindowFocusReason:
            self.anneau = evenement.reason() != Qt.FocusReason.MouseFocusReason
        super().focusInEvent(evenement)

    def paintEvent(self, _):
        peintre = QPainter(self)
        peintre.setRenderHint(QPainter.RenderHint.Antialiasing)
        place = self.rect().adjusted(0, 0, -self.LARGEUR - 16, 0)
        libelle = self.fontMetrics().elidedText(self.text(), Qt.TextElideMode.ElideRight,
                                                place.width())
        self.style().drawItemText(
            peintre, place, Qt.AlignmentFlag.AlignVCenter | Qt.AlignmentFlag.AlignLeft,
            self.palette(), self.isEnabled(), libelle, QPalette.ColorRole.WindowText)
        cadre = QRectF(self.width() - self.LARGEUR - 2, (self.height() - self.HAUTEUR) / 2,
                       self.LARGEUR, self.HAUTEUR)
        rayon = self.HAUTEUR / 2
        peintre.setOpacity(1 if self.isEnabled() else 0.45)
        if self.hasFocus() and self.anneau:
            peintre.setPen(QPen(couleur("accent"), 1.5))
            peintre.drawRoundedRect(cadre.adjusted(-2, -2, 2, 2), rayon + 2, rayon + 2)
        peintre.setPen(Qt.PenStyle.NoPen)
        peintre.setBrush(couleur("accent" if self.isChecked() else "repos"))
        peintre.drawRoundedRect(cadre, rayon, rayon)
        diametre = self.HAUTEUR - 4
        gauche = cadre.right() - diametre - 2 if self.isChecked() else cadre.left() + 2
        peintre.setBrush(Qt.GlobalColor.white)
        peintre.drawEllipse(QRectF(gauche, cadre.top() + 2, diametre, diametre))


def degrader(degrade, niveau, *arrets):
    for position, opacite in arrets:
        teinte = QColor(255, 232, 178)
        teinte.setAlphaF(niveau * opacite)
        degrade.setColorAt(position, teinte)
    return degrade


# Le projecteur dessiné : une lyre de théâtre et son faisceau, qui éclairent avec le niveau reçu, de 0
# à 1. Le repère fait 400 × 200, la lentille au point d'où part le faisceau.
class Projecteur(QWidget):
    LENTILLE, PISTE = QPointF(200, 66), QPointF(200, 172)

    def __init__(self):
        super().__init__()
        self.niveau = 0
        self.setMinimumSize(360, 190)
        self.setSizePolicy(QSizePolicy.Policy.Expanding, QSizePolicy.Policy.Fixed)

    def eclairer(self, niveau):
        if niveau != self.niveau:
            self.niveau = niveau
            self.update()

    def paintEvent(self, _):
        peintre = QPainter(self)
        peintre.setRenderHint(QPainter.RenderHint.Antialiasing)
        scene = QPainterPath()
        scene.addRoundedRect(QRectF(self.rect()), 8, 8)
        peintre.setClipPath(scene)
        peintre.fillRect(self.rect(), couleur("scene"))
        echelle = self.height() / 200
        peintre.translate((self.width() - 400 * echelle) / 2, 0)
        peintre.scale(echelle, echelle)
        peintre.setPen(Qt.PenStyle.NoPen)
        self.peindre_faisceau(peintre)
        self.peindre_lanterne(peintre)

    def peindre_faisceau(self, peintre):
        lentille, piste = self.LENTILLE, self.PISTE
        peintre.setBrush(degrader(QRadialGradient(piste, 120), self.niveau,
                                  (0, 0.95), (0.6, 0.55), (1, 0)))
        peintre.drawEllipse(piste, 118, 22)
        faisceau = QPainterPath(lentille - QPointF(20, 0))
        faisceau.lineTo(lentille + QPointF(20, 0))
        faisceau.lineTo(piste + QPointF(112, 0))
        faisceau.quadTo(piste + QPointF(0, 34), piste - QPointF(112, 0))
        faisceau.closeSubpath()
        peintre.setBrush(degrader(QLinearGradient(lentille, piste), self.niveau,
                                  (0, 0.85), (1, 0.12)))
        peintre.drawPath(faisceau)
        peintre.setBrush(degrader(QRadialGradient(lentille, 150), self.niveau, (0, 0.5), (1, 0)))
        peintre.drawEllipse(lentille, 150, 150)

    def peindre_lanterne(self, peintre):
        def polygone(*points):
            return QPolygonF([QPointF(x, y) for x, y in points])

        peintre.setBrush(QColor("#3c3e46"))
        peintre.drawRect(QRectF(0, 8, 400, 5))  # le pont d'accroche
        peintre.drawRect(QRectF(194, 6, 12, 14))  # le crochet
        peintre.setPen(QPen(QColor("#6a6d77"), 4, Qt.PenStyle.SolidLine,
                            Qt.PenCapStyle.RoundCap, Qt.PenJoinStyle.RoundJoin))
        peintre.setBrush(Qt.BrushStyle.NoBrush)
        peintre.drawPolyline(polygone((168, 44), (168, 20), (232, 20), (232, 44)))  # la lyre
        peintre.setPen(Qt.PenStyle.NoPen)
        peintre.setBrush(QColor("#565963"))
        peintre.drawRoundedRect(QRectF(174, 26, 52, 34), 7, 7)
        peintre.drawPolygon(polygone((176, 54), (224, 54), (230, 66), (170, 66)))
        peintre.setBrush(QColor(*(int(eteinte + (allumee - eteinte) * self.niveau)
                                  for eteinte, allumee in ((38, 255), (39, 250), (44, 240)))))
        peintre.drawEllipse(self.LENTILLE, 27, 6)
