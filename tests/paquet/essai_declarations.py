"""Les déclarations de la construction croisée, face à ce que l'exécutable appelle vraiment."""

import os
import re
import unittest
from pathlib import Path

import macho

RACINE = Path(os.environ["LUMIVIA_RACINE"])
CROISE = Path(os.environ["LUMIVIA_CROISE"])
DECLARATIONS = RACINE / "paquet/croise/declarations"

# Les valeurs du système, relevées à part des déclarations : elles font partie de son interface
# binaire, et rien à la construction ne dirait qu'une est fausse.
VALEURS = {
    "NSOrderedAscending": -1, "NSUTF8StringEncoding": 4, "NSPropertyListXMLFormat_v1_0": 100,
    "NSActivityUserInitiatedAllowingIdleSystemSleep": 0xEFFFFF,
    "NSActivityLatencyCritical": 0xFF00000000, "NSLayoutPriorityDefaultLow": 250,
    "NSApplicationActivationPolicyRegular": 0, "NSWindowStyleMaskTitled": 1,
    "NSWindowStyleMaskClosable": 2, "NSWindowStyleMaskMiniaturizable": 4,
    "NSBackingStoreBuffered": 2, "NSUserInterfaceLayoutOrientationHorizontal": 0,
    "NSUserInterfaceLayoutOrientationVertical": 1, "NSLayoutConstraintOrientationVertical": 1,
    "NSLayoutAttributeTop": 3, "NSLayoutAttributeLeading": 5, "NSBezelStyleRounded": 1,
    "NSControlSizeRegular": 0, "NSControlSizeSmall": 1, "NSImageScaleProportionallyUpOrDown": 3,
    "kCFNumberSInt32Type": 3, "OBJC_ASSOCIATION_RETAIN_NONATOMIC": 1,
}


def sans_commentaires(texte):
    return re.sub(r"//[^\n]*", "", texte)


def sans_parentheses(texte):
    while (reduit := re.sub(r"\([^()]*\)", "", texte)) != texte:
        texte = reduit
    return texte


def methodes(texte):
    """Les sélecteurs des méthodes que ce texte Objective-C déclare ou définit."""
    for entete in re.findall(r"^[-+] ?(\(.*?)[;{]", texte, re.M | re.S):
        entete = re.sub(r"__\w+(\(\w+\))?|[A-Z_]+\(.*|OBJC_\w+", " ", sans_parentheses(entete))
        morceaux = re.findall(r"(\w+):", entete)
        yield "".join(m + ":" for m in morceaux) if morceaux else entete.split()[0]


def proprietes(texte):
    """(lecture, écriture) de chaque propriété déclarée ; écriture vide quand il n'y en a pas."""
    for attributs, reste in re.findall(r"@property\s*(\([^)]*\))?([^;]*);", texte):
        nom = re.findall(r"\w+", reste)[-1]
        lecture = re.search(r"getter=(\w+)", attributs)
        ecriture = "" if "readonly" in attributs else f"set{nom[0].upper()}{nom[1:]}:"
        yield lecture.group(1) if lecture else nom, ecriture


class Declarations(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.textes = {chemin.name: sans_commentaires(chemin.read_text())
                      for chemin in DECLARATIONS.rglob("*.h")}
        cls.declare = "\n".join(cls.textes.values())
        sources = (RACINE / "plateforme/macos").glob("*.mm")
        cls.adaptateur = "\n".join(sans_commentaires(s.read_text()) for s in sources)
        cls.envoyes = set()
        for tranche in macho.lire(CROISE / "Assistant Lumivia").values():
            cls.envoyes |= set(tranche.selecteurs())

    def test_nomment_chaque_selecteur_que_le_code_envoie(self):
        racine_objc = next((RACINE / "construction/outils-croises").glob("*/libc/include/*/objc"))
        connus = set(methodes(self.declare)) | set(methodes(self.adaptateur))
        connus |= set(methodes((racine_objc / "NSObject.h").read_text()))
        connus |= {s for paire in proprietes(self.declare) for s in paire} | {"description"}
        self.assertEqual(self.envoyes - connus, set())
        self.assertGreater(len(self.envoyes), 80, "les sélecteurs ne se lisent plus")

    def test_ne_declarent_que_ce_qui_sert(self):
        servent = self.envoyes | set(methodes(self.adaptateur))
        inutiles = set(methodes(self.declare)) - servent
        inutiles |= {paire[0] for paire in proprietes(self.declare) if not servent & set(paire)}
        self.assertEqual(inutiles, set())

    def test_donnent_aux_constantes_les_valeurs_du_systeme(self):
        trouvees = re.findall(r"\b((?:NS|k[A-Z]|OBJC_)\w+) = ([^,;}\n]+)", self.declare)
        valeurs = {nom: eval(valeur.replace("ULL", "")) for nom, valeur in trouvees}
        self.assertEqual(valeurs, VALEURS)


if __name__ == "__main__":
    unittest.main(verbosity=2)
