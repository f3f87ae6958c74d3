"""L'exécutable de macOS, tel que la construction croisée le donne."""

import os
import re
import unittest
from pathlib import Path

import macho

RACINE = Path(os.environ["LUMIVIA_RACINE"])
EXECUTABLE = Path(os.environ["LUMIVIA_CROISE"]) / "Assistant Lumivia"
# La première version de macOS, et l'alignement que le système exige.
PUCES = {"x86_64": (0xA0F00, 0x1000), "ARM64": (0xB0000, 0x4000)}
OPTION_AD_HOC = 0x2


def table(nom):
    lignes = (RACINE / "paquet/croise" / nom).read_text().splitlines()
    return [ligne.split() for ligne in lignes if ligne and not ligne.startswith("#")]


class Executable(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.tranches = macho.lire(EXECUTABLE)

    def test_porte_les_deux_puces_et_leurs_versions_minimales(self):
        self.assertEqual(set(self.tranches), set(PUCES))
        for puce, tranche in self.tranches.items():
            construite = tranche.commandes[macho.mach_o.LC_BUILD_VERSION]
            minimum, alignement = PUCES[puce]
            self.assertEqual((construite.minos, construite.sdk, construite.platform),
                             (minimum, 0xB0000, 1), f"{puce} : pas pour ce macOS")
            self.assertEqual(tranche.place % alignement, 0, f"{puce} : pas alignée")
            self.assertEqual(tranche.entete.filetype, 2, f"{puce} : pas un programme")
            self.assertTrue(tranche.entete.flags & 0x200000, f"{puce} : adresse fixe")

    def test_importe_exactement_ce_que_disent_les_tables(self):
        chemins = {nom: chemin for nom, chemin, *_ in table("bibliotheques.txt")}
        symboles = table("symboles.txt")
        importes = set()
        for tranche in self.tranches.values():
            self.assertEqual(set(tranche.liens), {("load_dylib", c) for c in chemins.values()})
            self.assertFalse({macho.mach_o.LC_RPATH, macho.mach_o.LC_LAZY_LOAD_DYLIB}
                             & set(tranche.commandes))
            importes |= set(tranche.importes.items())
        self.assertEqual(importes, {(nom, chemins[ou]) for nom, ou, _ in symboles})
        recents = [nom for nom, _, depuis in symboles
                   if [int(n) for n in depuis.split(".")] > [10, 15]]
        self.assertEqual(recents, [])

    def test_ne_garde_ni_symbole_interne_ni_chemin_de_la_machine(self):
        octets = EXECUTABLE.read_bytes()
        for chemin in (RACINE, EXECUTABLE.parent, Path.home()):
            self.assertNotIn(str(chemin).encode() + b"/", octets)
        self.assertEqual(re.findall(rb"[ -~]*\.(?:cpp|mm|hpp)\b", octets), [])
        for tranche in self.tranches.values():
            self.assertLessEqual(tranche.internes, {b"__mh_execute_header"})

    def test_tient_en_un_mega_octet_et_demi_avec_une_signature_valide_pour_la_puce_Apple(self):
        self.assertLessEqual(EXECUTABLE.stat().st_size, 1_500_000)
        identifiant, options, signees, calculees = self.tranches["ARM64"].signature()
        self.assertEqual(identifiant, "Assistant Lumivia")
        self.assertTrue(options & OPTION_AD_HOC)
        self.assertEqual(signees, calculees)

    # Ce que les déclarations de la construction croisée donnent aux constantes : des valeurs de
    # l'interface binaire du système, relevées à part ; rien à la construction ne les dirait fausses.
    def test_a_les_constantes_du_systeme(self):
        declare = "\n".join(
            chemin.read_text() for chemin in (RACINE / "paquet/croise/declarations").rglob("*.h"))
        trouvees = re.findall(r"\b((?:NS|k[A-Z]|OBJC_)\w+) = ([^,;}\n]+)", declare)
        valeurs = {nom: eval(valeur.replace("ULL", "")) for nom, valeur in trouvees}
        relevees = Path("donnees/valeurs.txt").read_text().split()
        self.assertEqual(valeurs, dict(zip(relevees[::2], (int(v, 0) for v in relevees[1::2]))))
