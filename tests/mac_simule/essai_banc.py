"""Le banc : ce qu'il dit, et ce que ses interrupteurs changent."""

import ctypes
import os
import pathlib
import runpy
import subprocess
import sys
import tempfile
import time
import unittest

from PyQt6.QtWidgets import QAbstractButton, QApplication

MAC_SIMULE = pathlib.Path(__file__).parents[2] / "mac_simule"
sys.path.insert(0, str(MAC_SIMULE / "banc"))
Banc = runpy.run_path(str(MAC_SIMULE / "banc/banc"))["Banc"]
from constat import Reception, constater, lire_reception

SECONDE = 1_000_000_000
QT = QApplication(["banc"])
EXTENSIONS = ("%s\t*\tX\tcom.ftdi.vcp.dext\tN\t[activated %s]\n"
              "*\t*\tY\tcom.objective-see.lulu\tLuLu\t[activated enabled]\n")


def boutons(fenetre):
    return {bouton.text(): bouton for bouton in fenetre.findChildren(QAbstractButton)}


class EssaiBanc(unittest.TestCase):
    def setUp(self):
        dossier = self.enterContext(tempfile.TemporaryDirectory())
        self.racine, self.etat = f"{dossier}/mac", pathlib.Path(dossier, "mac/etat")
        subprocess.run([MAC_SIMULE / "racine/creer_mac", "--scenario", "sans-emetteur", self.racine],
                       check=True)

    def test_le_projecteur_dit_ce_qu_il_recoit(self):
        recue = Reception(1234, 1234, SECONDE, SECONDE, 32_800, 255, 255, 0)
        plein = constater(recue, 2 * SECONDE)
        self.assertEqual(plein, (True, 1, "Plein feu, 100 %",
                                 "32,8 trames par seconde, 1\u202f234 reçues", "Signal correct"))
        for perdu in (constater(recue, 2 * SECONDE + 1), constater(None, SECONDE)):
            self.assertEqual(perdu[:3], (False, 0, "Aucun signal"))
        recue = recue._replace(verdict=2)
        self.assertIn("88 µs", constater(recue, SECONDE).diagnostic)
        recue = recue._replace(derniere_comprise=0)
        self.assertEqual(constater(recue, SECONDE)[:3], (False, 0, "Signal illisible"))

    def test_il_lit_ce_que_la_bibliotheque_depose(self):
        (self.etat / "usb/emetteur").write_text("fabricant 403\nproduit 6001\n")
        os.environ["LUMIVIA_MAC"] = self.racine
        d2xx, poignee = ctypes.CDLL(os.environ["D2XX"]), ctypes.c_void_p()
        d2xx.FT_Open(0, ctypes.byref(poignee))
        for geste in (d2xx.FT_SetBreakOn, d2xx.FT_SetBreakOff, d2xx.FT_SetBreakOn):
            geste(poignee)
            time.sleep(0.001)
        vu = constater(lire_reception(self.racine), time.monotonic_ns())
        self.assertEqual(vu[2:], ("Signal illisible", "0,0 trames par seconde, 1 reçues",
                                  "Signal fautif : trame qui n'a pas ses 513 créneaux"))

    def test_les_interrupteurs_changent_les_faits(self):
        # Tapé à la main : en hexadécimal, comme partout.
        (self.etat / "usb/souris").write_text("fabricant 46d\nproduit C077\n")
        # Un Mac sans émetteur permet d'en brancher un.
        seul = Banc(self.racine)
        boutons(seul)["Émetteur A1B2C3"].click()
        neuf, debranche = self.etat / "usb/emetteur-neuf", self.etat / "debranches/emetteur-neuf"
        self.assertTrue(neuf.read_text().endswith("serie A1B2C3\n"))
        extensions = self.etat / "extensions_systeme"
        extensions.write_text(EXTENSIONS % ("*", "enabled"))
        fenetre = Banc(self.racine)
        self.assertEqual(fenetre.windowTitle(), "Mac simulé")
        vus = ["Émetteur A1B2C3", "Autre appareil USB, 0403:6015", "Autre appareil USB, 046d:c077",
               "Un autre logiciel tient l'émetteur", "FTDIUSBSerialDextInstaller"]
        self.assertEqual(list(boutons(fenetre)), vus)  # pour un lecteur d'écran, comme pour l'œil
        suite = [fenetre.nextInFocusChain()]  # et pour la touche Tab
        while suite[-1] is not fenetre:
            suite.append(suite[-1].nextInFocusChain())
        self.assertEqual([un.text() for un in suite if isinstance(un, QAbstractButton)], vus)
        for rendu in (False, True):
            boutons(fenetre)[vus[0]].click()
            self.assertEqual((neuf.exists(), debranche.exists()), (rendu, not rendu))
            boutons(fenetre)[vus[3]].click()
            self.assertEqual((self.etat / "emetteur_occupe").exists(), not rendu)
        boutons(fenetre)[vus[4]].click()
        self.assertEqual(extensions.read_text()[0], "*", "les Réglages sont fermés")
        (self.etat / "reglages_ouverts").touch()
        rouvert = Banc(self.racine)
        for attendu in (("", "disabled"), ("*", "enabled")):
            boutons(rouvert)[vus[4]].click()
            self.assertEqual(extensions.read_text(), EXTENSIONS % attendu, "sa seule ligne change")
