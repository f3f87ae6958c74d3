"""Lecture d'un exécutable Mach-O universel, sans passer par les outils qui l'ont fabriqué.

Par macholib, et d'après le format pour ce qu'elle ne lit pas : la signature.
"""

import hashlib
import struct

from macholib import MachO, SymbolTable, mach_o


def chaine(octets, debut):
    return octets[debut:octets.index(b"\0", debut)].decode()


class Tranche:
    """L'exécutable d'une puce."""

    def __init__(self, fichier, lue):
        with open(fichier.filename, "rb") as octets:
            octets.seek(lue.offset)
            self.octets = octets.read(lue.size)
        self.place, self.entete = lue.offset, lue.header
        self.commandes = {genre.cmd: commande for genre, commande, _ in lue.commands}
        self.liens = [(genre, chemin) for _, genre, chemin in lue.walkRelocatables()]
        symboles = SymbolTable.SymbolTable(fichier, lue)
        self.importes = {nom.decode(): self.liens[(symbole.n_desc >> 8) - 1][1]
                         for symbole, nom in symboles.undefsyms}
        self.internes = {nom for _, nom in symboles.nlists} - {nom for _, nom in symboles.undefsyms}

    def signature(self):
        """Identifiant, options, empreintes des pages selon la signature, les mêmes recalculées."""
        limite = self.commandes[mach_o.LC_CODE_SIGNATURE].dataoff
        magie, _, nombre = struct.unpack_from(">3I", self.octets, limite)
        index = self.octets[limite + 12:limite + 12 + 8 * nombre]
        code = self.octets[limite + dict(struct.iter_unpack(">II", index))[0]:]
        (_, _, _, options, debut, identifiant, _, pages, couvert, taille, genre, _,
         puissance) = struct.unpack_from(">9I4B", code)
        assert (magie, taille, genre) == (0xFADE0CC0, 32, 2), "la signature n'a pas la bonne forme"
        assert couvert == limite, "la signature ne couvre pas tout l'exécutable"
        signees = [code[debut + 32 * page:debut + 32 * (page + 1)] for page in range(pages)]
        suite = range(0, limite, 1 << puissance)
        calculees = [hashlib.sha256(self.octets[place:min(place + suite.step, limite)]).digest()
                     for place in suite]
        return chaine(code, identifiant), options, signees, calculees


def lire(chemin):
    """Les tranches d'un exécutable universel, par puce."""
    fichier = MachO.MachO(str(chemin))
    return {mach_o.CPU_TYPE_NAMES[lue.header.cputype]: Tranche(fichier, lue)
            for lue in fichier.headers}
