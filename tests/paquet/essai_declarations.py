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
    "NSEventTypeLeftMouseUp": 2, "NSEventTypeKeyDown": 10,
    "NSApplicationActivationPolicyRegular": 0, "NSWindowStyleMaskTitled": 1,
    "NSWindowStyleMaskClosable": 2, "NSWindowStyleMaskMiniaturizable": 4,
    "NSBackingStoreBuffered": 2, "NSUserInterfaceLayoutOrientationHorizontal": 0,
    "NSUserInterfaceLayoutOrientationVertical": 1, "NSLayoutConstraintOrientationVertical": 1,
    "NSLayoutAttributeTop": 3, "NSLayoutAttributeLeading": 5, "NSBezelStyleRounded": 1,
    "NSControlSizeRegular": 0, "NSControlSizeSmall": 1, "NSImageScaleProportionallyUpOrDown": 3,
    "kCFNumberSInt32Type": 3, "OBJC_ASSOCIATION_RETAIN_NONATOMIC": 1,
}


def methodes(texte):
    """Les sélecteurs des méthodes que ce texte Objective-C déclare ou définit."""
    for entete in re.findall(r"^[-+] ?(\(.*?)[;{]", texte, re.M | re.S):
        while (reduit := re.sub(r"\([^()]*\)", "", entete)) != entete:
            entete = reduit
        yield "".join(re.findall(r"\w+:", entete)) or entete.strip()


def proprietes(texte):
    """Les sélecteurs, de lecture et d'écriture, de chaque propriété déclarée."""
    for attributs, nom in re.findall(r"@property\s*(\([^)]*\))?[^;]*?(\w+)(?: NS_\w+)?;", texte):
        lecture = re.search(r"getter=(\w+)", attributs)
        yield {lecture.group(1) if lecture else nom, f"set{nom[0].upper()}{nom[1:]}:"}


class Declarations(unittest.TestCase):
    declare = "\n".join(chemin.read_text() for chemin in DECLARATIONS.rglob("*.h"))

    # Le contraire, un appel que rien ne déclare, arrête le compilateur.
    def test_ne_declarent_que_ce_qui_sert(self):
        servent = set()
        for source in (RACINE / "plateforme/macos").glob("*.mm"):
            servent |= set(methodes(source.read_text()))
        for tranche in macho.lire(CROISE / "Assistant Lumivia").values():
            servent |= set(tranche.selecteurs())
        declarees = [*proprietes(self.declare), *({nom} for nom in methodes(self.declare))]
        self.assertEqual([noms for noms in declarees if not noms & servent], [])

    def test_donnent_aux_constantes_les_valeurs_du_systeme(self):
        trouvees = re.findall(r"\b((?:NS|k[A-Z]|OBJC_)\w+) = ([^,;}\n]+)", self.declare)
        valeurs = {nom: eval(valeur.replace("ULL", "")) for nom, valeur in trouvees}
        self.assertEqual(valeurs, VALEURS)
