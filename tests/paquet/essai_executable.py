"""L'exécutable de macOS, tel que la construction croisée le donne."""

import os
import re
import unittest
from pathlib import Path

import macho

RACINE = Path(os.environ["LUMIVIA_RACINE"])
EXECUTABLE = Path(os.environ["LUMIVIA_CROISE"]) / "Assistant Lumivia"
MINIMUMS = {"x86_64": (10, 15), "arm64": (11, 0)}
OPTION_AD_HOC = 0x2


def table(nom):
    lignes = (RACINE / "paquet/croise" / nom).read_text().splitlines()
    return [ligne.split() for ligne in lignes if ligne and not ligne.startswith("#")]


class Executable(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.tranches = macho.lire(EXECUTABLE)

    def test_porte_les_deux_puces_et_leurs_versions_minimales(self):
        self.assertEqual(set(self.tranches), set(MINIMUMS))
        for puce, tranche in self.tranches.items():
            self.assertEqual(tranche.genre, 2, f"{puce} : pas un programme")
            self.assertEqual(tranche.plateforme, 1, f"{puce} : pas pour macOS")
            self.assertEqual(tranche.minimum, MINIMUMS[puce], puce)
            self.assertTrue(tranche.options & 0x200000, f"{puce} : adresse fixe")

    def test_importe_exactement_ce_que_disent_les_tables(self):
        chemins = {nom: chemin for nom, chemin, *_ in table("bibliotheques.txt")}
        connus = {nom: chemins[bibliotheque] for nom, bibliotheque, _ in table("symboles.txt")}
        employes = set()
        for tranche in self.tranches.values():
            self.assertEqual(set(tranche.bibliotheques), set(chemins.values()))
            self.assertEqual(tranche.autres_liens, [])
            importes = {nom: ou for nom, importe, ou in tranche.symboles() if importe}
            self.assertEqual(importes, {n: connus.get(n, "absent de la table") for n in importes})
            employes |= set(importes)
        self.assertEqual(set(connus) - employes, set(), "symboles de la table qui ne servent pas")
        for nom, _, depuis in table("symboles.txt"):
            version = tuple(int(n) for n in depuis.split("."))[:2]
            self.assertLessEqual(version, MINIMUMS["x86_64"], nom)

    def test_ne_garde_ni_symbole_interne_ni_chemin_de_la_machine(self):
        octets = EXECUTABLE.read_bytes()
        for chemin in (RACINE, EXECUTABLE.parent, Path.home()):
            self.assertNotIn(str(chemin).encode() + b"/", octets)
        self.assertEqual(re.findall(rb"[ -~]*\.(?:cpp|mm|hpp)\b", octets), [])
        for tranche in self.tranches.values():
            internes = [nom for nom, importe, _ in tranche.symboles() if not importe]
            self.assertLessEqual(set(internes), {"__mh_execute_header"})

    def test_tient_en_un_mega_octet_et_demi_avec_une_signature_valide_pour_la_puce_Apple(self):
        self.assertLessEqual(EXECUTABLE.stat().st_size, 1_500_000)
        identifiant, options, fautes = self.tranches["arm64"].repertoire_de_code()
        self.assertEqual(identifiant, "Assistant Lumivia")
        self.assertTrue(options & OPTION_AD_HOC)
        self.assertEqual(fautes, [])


if __name__ == "__main__":
    unittest.main(verbosity=2)
