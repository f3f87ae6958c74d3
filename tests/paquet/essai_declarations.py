"""Les déclarations de la construction croisée, face à ce que l'exécutable appelle vraiment."""

import os
import re
import unittest
from pathlib import Path

import macho

RACINE = Path(os.environ["LUMIVIA_RACINE"])
CROISE = Path(os.environ["LUMIVIA_CROISE"])
DECLARATIONS = RACINE / "paquet/croise/declarations"


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
        # Relevées à part : elles font partie de l'interface binaire du système, et rien à la
        # construction ne dirait qu'une est fausse.
        relevees = Path("donnees/valeurs.txt").read_text().split()
        self.assertEqual(valeurs, dict(zip(relevees[::2], (int(v, 0) for v in relevees[1::2]))))
