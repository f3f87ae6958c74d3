"""Le paquet assemblé autour de l'exécutable, et les refus de ./empaqueter."""

import json
import os
import plistlib
import re
import shutil
import struct
import subprocess
import tempfile
import unittest
from pathlib import Path

RACINE = Path(os.environ["LUMIVIA_RACINE"])
CROISE = Path(os.environ["LUMIVIA_CROISE"])


def lancer(*commande):
    return subprocess.run(commande, capture_output=True, text=True)


def arbre(dossier):
    """Chemin, droits, date et contenu de tout ce que le dossier contient."""
    return {str(p.relative_to(dossier)): (p.stat().st_mode, int(p.stat().st_mtime),
                                          p.read_bytes() if p.is_file() else b"")
            for p in dossier.rglob("*")}


class Paquet(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.dossier = Path(tempfile.mkdtemp())
        cls.addClassCleanup(shutil.rmtree, cls.dossier)
        cls.contenu = cls.assembler("premier") / "Contents"

    @classmethod
    def assembler(cls, nom, *options):
        fin = lancer(RACINE / "outils/assembler-paquet", CROISE / "Assistant Lumivia",
                     cls.dossier / nom, *options)
        assert fin.returncode == 0, fin.stderr
        return cls.dossier / nom / "Assistant Lumivia.app"

    def test_porte_un_Info_plist_complet(self):
        version = re.search(r"project\(.*VERSION ([\d.]+)", (RACINE / "CMakeLists.txt").read_text())
        attendu = Path("donnees/info.json").read_text().replace("@VERSION@", version.group(1))
        info = plistlib.loads((self.contenu / "Info.plist").read_bytes())
        self.assertEqual(info, json.loads(attendu))

    def test_demande_exactement_deux_droits(self):
        droits = plistlib.loads((RACINE / "paquet/AssistantLumivia.entitlements").read_bytes())
        self.assertEqual(droits, {"com.apple.security.device.usb": True,
                                  "com.apple.security.automation.apple-events": True})

    def test_porte_l_executable_les_images_et_la_langue(self):
        self.assertTrue(os.access(self.contenu / "MacOS/Assistant Lumivia", os.X_OK))
        ressources = self.contenu / "Resources"
        self.assertEqual([p.read_bytes()[:4] for p in ressources.glob("0[2356]-*.png")],
                         [b"\x89PNG"] * 4)
        self.assertTrue((ressources / "fr.lproj/InfoPlist.strings").is_file())
        self.assertFalse((self.contenu / "Frameworks").exists())
        poids = sum(p.stat().st_size for p in self.contenu.rglob("*") if p.is_file())
        self.assertLessEqual(poids, 4_000_000)

    def test_porte_une_icone_a_toutes_les_tailles_telle_que_dessinee(self):
        icone = (self.contenu / "Resources/AssistantLumivia.icns").read_bytes()
        self.assertEqual(icone[:8], struct.pack(">4sI", b"icns", len(icone)))
        cotes, reste = {}, icone[8:]
        while reste:
            genre, taille, forme, cote = struct.unpack_from(">4sI4s12xI", reste)
            if forme == b"\x89PNG":
                cotes[genre] = cote
            elif genre.endswith(b"mk"):
                cotes[genre] = (taille - 8) ** 0.5
            reste = reste[taille:]
        self.assertEqual(cotes, {
            b"s8mk": 16, b"l8mk": 32, b"ic11": 32, b"ic12": 64, b"ic07": 128, b"ic13": 256,
            b"ic08": 256, b"ic14": 512, b"ic09": 512, b"ic10": 1024})
        redessinee = self.dossier / "redessinee.icns"
        fin = lancer(RACINE / "paquet/icone/generer", redessinee)
        self.assertEqual(fin.returncode, 0, fin.stderr)
        self.assertEqual(redessinee.read_bytes(), icone, "l'icône n'est plus celle du dessin")

    def test_est_le_meme_a_chaque_assemblage(self):
        self.assertEqual(arbre(self.assembler("second")), arbre(self.contenu.parent))

    def test_recoit_la_bibliotheque_D2XX_sans_y_toucher(self):
        fournie = RACINE / "README.md"
        recue = self.assembler("avec", fournie) / "Contents/Frameworks/libftd2xx.dylib"
        self.assertEqual(recue.read_bytes(), fournie.read_bytes())
        self.assertTrue(os.access(recue, os.X_OK))


class Commande(unittest.TestCase):
    def refuse(self, statut, extrait, *options):
        fin = lancer(RACINE / "empaqueter", *options)
        self.assertEqual(fin.returncode, statut, fin.stderr)
        self.assertRegex(fin.stderr, rf"^Erreur : [^\n]*{extrait}[^\n]*\n$")

    def test_refuse_une_option_ou_une_bibliotheque_fausse(self):
        self.refuse(2, "attend une valeur", "--d2xx")
        self.refuse(2, "que sur un Mac", "--identite", "Quelqu'un")
        self.refuse(1, "n'existe pas", "--d2xx", CROISE / "rien.dylib")
        with tempfile.TemporaryDirectory() as dossier:
            une_puce = Path(dossier, "libftd2xx.dylib")
            subprocess.run(["clang-16", "-target", "arm64-apple-macos11.0", "-fuse-ld=lld",
                            "-dynamiclib", "-nostdlib", "-x", "c", "/dev/null", "-o", une_puce,
                            "-install_name", "@rpath/libftd2xx.dylib"], check=True)
            for fichier in (une_puce, "/bin/ls", CROISE / "Assistant Lumivia"):
                self.refuse(1, "pour les deux puces", "--d2xx", fichier)
