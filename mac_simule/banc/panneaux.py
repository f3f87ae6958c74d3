# Les panneaux du banc : des cartes, chacune son titre et sa colonne. Chacune relit les faits quand on
# le lui demande, et n'a pas d'autre mémoire.

import contextlib
import os
import pathlib
import re
import time

from PyQt6.QtCore import QDateTime, QLocale
from PyQt6.QtWidgets import QFrame, QSizePolicy, QVBoxLayout, QWidget

import mac
from apparence import Interrupteur, Projecteur, colorer, couleur, etiquette
from constat import constater, lire_reception


class Panneau(QFrame):
    def __init__(self, titre, racine, espace=8):
        super().__init__()
        self.etat = pathlib.Path(racine, "etat")
        self.colonne = QVBoxLayout(self)
        self.colonne.setContentsMargins(15, 11, 15, 13)  # sans le bord
        self.colonne.setSpacing(espace)
        self.ajouter(etiquette("titre", titre))
        self.setObjectName("carte")
        self.setStyleSheet(f"#carte {{ background: {couleur('carte').name()}; border-radius: 10px; "
                           f"border: 1px solid {couleur('bord').name()}; }}")
        self.setSizePolicy(QSizePolicy.Policy.Preferred, QSizePolicy.Policy.Fixed)

    def ajouter(self, vue):
        self.colonne.addWidget(vue)
        return vue

    # Tout un fait, sans ses blancs du bout.
    def fait(self, nom):
        return mac.lire(self.etat / nom).strip()

    # Le fait est remplacé d'un coup : personne n'en lit la moitié. Un refus du disque se voit : la
    # prochaine relecture remet l'interrupteur comme le fichier.
    def remplacer(self, nom, texte):
        voisin = self.etat / f"{nom}.{os.getpid()}"
        with contextlib.suppress(OSError):
            mac.ecrire(voisin, texte)
            voisin.rename(self.etat / nom)


# Le projecteur, et ce qu'il reçoit.
class PanneauProjecteur(Panneau):
    def __init__(self, racine):
        super().__init__("Projecteur", racine)
        self.vue = self.ajouter(Projecteur())
        self.lumiere, self.reception, self.diagnostic = (
            self.ajouter(etiquette(ton)) for ton in ("titre", "discret", "courant"))

    def relire(self):
        constat = constater(lire_reception(self.etat.parent), time.monotonic_ns())
        self.vue.eclairer(constat.niveau)
        self.lumiere.setText(constat.lumiere)
        self.reception.setText(constat.reception)
        self.diagnostic.setText(f"● {constat.diagnostic}" if constat.diagnostic else " ")
        colorer(self.diagnostic, "bon" if constat.correct else "mauvais")


# Un scénario peut n'avoir aucun émetteur : on branche alors celui-ci.
NOM_NEUF, NEUF = "emetteur-neuf", "fabricant 0x0403\nproduit 0x6001\nserie A1B2C3\n"


# Ses identifiants, en hexadécimal, avec ou sans « 0x », et son numéro.
def lire_appareil(texte):
    lu = dict(re.findall(r"^(\w+) (.*)$", texte, re.M))
    fabricant, produit = (
        int(re.match("(?:0x)?([0-9a-f]*)", lu.get(cle, ""), re.I)[1] or "0", 16)
        for cle in ("fabricant", "produit"))
    return (fabricant, produit), lu.get("serie", "")


# « Émetteur A1B2C3 »
def designation(identifiants, serie):
    if identifiants != (0x0403, 0x6001):
        return "Autre appareil USB, {:04x}:{:04x}".format(*identifiants)
    return f"Émetteur {serie}" if serie else "Émetteur sans numéro de série"


# Les appareils USB, branchés ou non, et l'émetteur qu'un autre logiciel tient.
class PanneauPorts(Panneau):
    def __init__(self, racine):
        super().__init__("Ports USB", racine)
        self.liste, self.ports = QVBoxLayout(), {}
        self.liste.setSpacing(2)
        self.colonne.addLayout(self.liste)
        self.occupe = self.ajouter(Interrupteur(self.occuper, "Un autre logiciel tient l'émetteur"))

    def appareils(self):
        lus = {nom.name: lire_appareil(mac.lire(nom)) for dossier in ("debranches", "usb")
               for nom in self.etat.glob(f"{dossier}/*")}
        if not any(identifiants == (0x0403, 0x6001) for identifiants, _ in lus.values()):
            lus[NOM_NEUF] = lire_appareil(NEUF)
        return dict(sorted(lus.items()))

    def relire(self):
        appareils = self.appareils()
        if list(appareils) != list(self.ports):
            self.refaire(appareils)
        for nom, appareil in appareils.items():
            self.ports[nom].setText(designation(*appareil))
            self.ports[nom].setChecked((self.etat / "usb" / nom).exists())
        self.occupe.setChecked((self.etat / "emetteur_occupe").exists())

    # La touche Tab et les lecteurs d'écran suivent l'œil : les ports, dans leur ordre, puis le reste.
    def refaire(self, noms):
        for port in self.ports.values():
            port.setParent(None)
        self.ports, precedent = {}, self.window()
        for nom in noms:
            port = Interrupteur(lambda branche, nom=nom: self.brancher(nom, branche))
            self.liste.addWidget(port)
            QWidget.setTabOrder(precedent, port)
            self.ports[nom] = precedent = port
        self.occupe.raise_()

    def brancher(self, nom, branche):
        de, vers = ("debranches", "usb") if branche else ("usb", "debranches")
        with contextlib.suppress(OSError):
            (self.etat / vers).mkdir(exist_ok=True)
            if (self.etat / de / nom).exists():
                (self.etat / de / nom).rename(self.etat / vers / nom)
            elif branche:
                self.remplacer(f"usb/{nom}", NEUF)

    def occuper(self, occupe):
        if occupe:
            self.remplacer("emetteur_occupe", "")
        else:
            with contextlib.suppress(OSError):
                (self.etat / "emetteur_occupe").unlink()


IDENTIFIANT, ACTIVE, DESACTIVEE = "com.ftdi.vcp.dext", "[activated enabled]", "[activated disabled]"


# Les Réglages du Mac, ouverts ou non, et la case de l'extension de FTDI.
class PanneauReglages(Panneau):
    def __init__(self, racine):
        super().__init__("Réglages du Mac", racine)
        self.explication = self.ajouter(etiquette("discret"))
        self.extension = self.ajouter(Interrupteur(self.cocher, "FTDIUSBSerialDextInstaller"))

    def lignes(self):
        return mac.lire(self.etat / "extensions_systeme").split("\n")

    # Vrai quand une ligne de l'extension de FTDI le dit dans cet état. Une version qui s'en va n'est
    # ni active ni désactivée.
    def dite(self, etat):
        return any(IDENTIFIANT in ligne and etat in ligne for ligne in self.lignes())

    def relire(self):
        ouverts, cochee = (self.etat / "reglages_ouverts").exists(), self.dite(ACTIVE)
        installee = cochee or self.dite(DESACTIVEE)
        self.explication.setText(
            "Fermés. L'assistant les ouvre quand il en a besoin." if not ouverts else
            "Ouverts aux extensions de pilotes. Décochez celle de FTDI, puis revenez à l'assistant."
            if installee else "Ouverts. Aucune extension de pilote de FTDI n'est installée.")
        self.extension.setVisible(installee)
        self.extension.setEnabled(ouverts)
        self.extension.setChecked(cochee)

    # « * * … [activated enabled] » devient «   * … [activated disabled] », ou l'inverse ; les autres
    # lignes ne bougent pas. La première colonne dit si l'extension est permise.
    def cocher(self, cochee):
        avant, apres, permise = ((DESACTIVEE, ACTIVE, "*") if cochee else (ACTIVE, DESACTIVEE, ""))
        self.remplacer("extensions_systeme", "\n".join(
            permise + re.sub("^[^\t]*(?=\t)", "", ligne).replace(avant, apres)
            if IDENTIFIANT in ligne and avant in ligne else ligne for ligne in self.lignes()))


def demarrage(fait):
    lu = re.search(r"sec = (\d+)", fait)
    if not lu:
        return f"Heure de démarrage illisible : {fait}"
    return QLocale("fr_FR").toString(QDateTime.fromSecsSinceEpoch(int(lu[1])),
                                     "'Démarré le' dddd d MMMM yyyy 'à' HH:mm:ss")


def extensions_chargees(fait):
    colonnes = (f"{ligne}\t".split("\t") for ligne in fait.split("\n") if ligne)
    noms = ", ".join(f"{identifiant.rpartition('.')[2]} {version}"
                     for identifiant, version, *_ in colonnes)
    return f"Extensions chargées : {noms}" if noms else "Aucune extension tierce n'est chargée."


# L'identité du Mac : modèle, puce, système, démarrage, extensions du noyau chargées.
class PanneauMac(Panneau):
    def __init__(self, racine):
        super().__init__("Ce Mac", racine, espace=4)
        self.identite, self.demarrage, self.extensions = (
            self.ajouter(etiquette(ton)) for ton in ("courant", "discret", "discret"))

    def relire(self):
        puce = "Intel" if self.fait("puce") == "intel" else "Apple"
        self.identite.setText(f"{self.fait('modele')}, puce {puce}, macOS {self.fait('version')}")
        self.demarrage.setText(demarrage(self.fait("demarrage")))
        self.extensions.setText(extensions_chargees(self.fait("kexts_charges")))
