"""Les chemins de Mac dans un texte, tels que le Terminal du Mac simulé les change."""

import pathlib
import runpy
import unittest

OUTILS = pathlib.Path(__file__).parents[2] / "mac_simule/racine/outils"
TERMINAL = runpy.run_path(str(next(OUTILS.rglob("MacOS/Terminal"))))


class Chemins(unittest.TestCase):
    def test_precedes_une_fois_a_leur_debut(self):
        for avant, apres in (
                ("R='/Users/é/x' S=\"/Library/A$(d)\"", "R='/P/Users/é/x' S=\"/P/Library/A$(d)\""),
                ("for k in '\\''/Library/D.kext'\\''", "for k in '\\''/P/Library/D.kext'\\''"),
                ("/usr/sbin/kextcache -i / 2>&1", "/P/usr/sbin/kextcache -i / 2>&1"),
                ("PATH=/usr/bin:/usr/sbin", "PATH=/P/usr/bin:/P/usr/sbin"),
                ("#!/bin/zsh\n/bin/sh /tmp/x >/dev/null", "#!/bin/zsh\n/bin/sh /tmp/x >/dev/null"),
                ("$HOME/Library ~/Library é/Library", "$HOME/Library ~/Library é/Library"),
                ("/Librarys /usr/binai /Usersé /Users", "/Librarys /usr/binai /Usersé /P/Users"),
                ("/private/Library ./Users", "/private/Library ./Users")):
            self.assertEqual(TERMINAL["avec_prefixe"](avant.encode(), b"/P").decode(), apres)

    def test_prefixe_ote_ou_que_le_texte_soit_coupe(self):
        texte = b"mis : /tmp/m/Library/x /tmp/m/Users /tmp/mac /tmp/m fin/tmp/"
        for coupe in range(len(texte) + 1):
            filtre = TERMINAL["Filtre"](b"/tmp/m")
            sortie = filtre.passer(texte[:coupe]) + filtre.passer(texte[coupe:]) + filtre.finir()
            self.assertEqual(sortie, b"mis : /Library/x /Users /tmp/mac /tmp/m fin/tmp/", coupe)
