"""Lecture d'un exécutable Mach-O universel, juste assez pour l'inspecter.

Écrite d'après le format, sans passer par les outils qui ont fabriqué l'exécutable.
"""

import hashlib
import struct

PUCES = {0x01000007: "x86_64", 0x0100000C: "arm64"}
LC_SYMTAB, LC_DYLIB, LC_SEGMENT_64, LC_SIGNATURE, LC_BUILD = 0x2, 0xC, 0x19, 0x1D, 0x32
LC_AUTRES_LIENS = {0x80000018, 0x8000001F, 0x20, 0x8000001C}  # faible, réexport, différé, rpath


def chaine(octets, debut):
    return octets[debut:octets.index(b"\0", debut)].decode()


class Tranche:
    """L'exécutable d'une puce."""

    def __init__(self, octets):
        self.octets = octets
        magie, puce, _, self.genre, nombre, _, self.options, _ = struct.unpack_from("<8I", octets)
        assert magie == 0xFEEDFACF, "ce n'est pas un Mach-O de 64 bits"
        self.puce = PUCES[puce]
        self.bibliotheques, self.autres_liens, self.sections = [], [], {}
        self.signature = None
        position = 32
        for _ in range(nombre):
            commande, taille = struct.unpack_from("<II", octets, position)
            self._lire(commande, position)
            position += taille

    def _lire(self, commande, position):
        champs = struct.unpack_from("<6I", self.octets, position)
        if commande == LC_BUILD:
            self.plateforme, self.minimum = champs[2], (champs[3] >> 16, champs[3] >> 8 & 255)
        elif commande == LC_DYLIB:
            self.bibliotheques.append(chaine(self.octets, position + champs[2]))
        elif commande in LC_AUTRES_LIENS:
            self.autres_liens.append(chaine(self.octets, position + champs[2]))
        elif commande == LC_SYMTAB:
            self._symboles = champs[2:6]
        elif commande == LC_SIGNATURE:
            self.signature = self.octets[champs[2]:champs[2] + champs[3]]
            self.debut_signature = champs[2]
        elif commande == LC_SEGMENT_64:
            self._lire_sections(position)

    def _lire_sections(self, position):
        nombre = struct.unpack_from("<I", self.octets, position + 64)[0]
        for rang in range(nombre):
            nom, _, adresse, taille, debut = struct.unpack_from(
                "<16s16sQQI", self.octets, position + 72 + rang * 80)
            self.sections[nom.rstrip(b"\0").decode()] = (adresse, taille, debut)

    def symboles(self):
        """(nom, importé, bibliothèque) de chaque entrée de la table des symboles."""
        debut, nombre, textes, _ = self._symboles
        for rang in range(nombre):
            nom, genre, _, description, _ = struct.unpack_from(
                "<IBBHQ", self.octets, debut + rang * 16)
            importe = genre & 0x0E == 0
            yield (chaine(self.octets, textes + nom), importe,
                   self.bibliotheques[(description >> 8) - 1] if importe else None)

    def selecteurs(self):
        """Les sélecteurs que le code envoie."""
        _, taille, debut = self.sections["__objc_selrefs"]
        adresse_textes, _, debut_textes = self.sections["__objc_methname"]
        for (adresse,) in struct.iter_unpack("<Q", self.octets[debut:debut + taille]):
            yield chaine(self.octets, debut_textes + adresse - adresse_textes)

    def repertoire_de_code(self):
        """Le répertoire de code de la signature : (identifiant, options, fautes).

        `fautes` nomme les pages dont l'empreinte recalculée n'est pas celle de la signature.
        """
        magie, _, nombre = struct.unpack_from(">III", self.signature)
        assert magie == 0xFADE0CC0, "la signature n'a pas la bonne forme"
        debut = next(place for genre, place in struct.iter_unpack(
            ">II", self.signature[12:12 + 8 * nombre]) if genre == 0)
        code = self.signature[debut:]
        (_, _, _, options, empreintes, identifiant, _, pages, limite, taille, genre, _,
         puissance) = struct.unpack_from(">9I4B", code)
        assert (taille, genre) == (32, 2), "les empreintes ne sont pas en SHA-256"
        assert limite == self.debut_signature, "la signature ne couvre pas tout l'exécutable"
        page = 1 << puissance
        assert pages == -(-limite // page), "il manque des pages à la signature"
        fautes = [n for n in range(pages)
                  if hashlib.sha256(self.octets[n * page:min((n + 1) * page, limite)]).digest()
                  != code[empreintes + n * 32:empreintes + (n + 1) * 32]]
        return chaine(code, identifiant), options, fautes


def lire(chemin):
    """Les tranches d'un exécutable universel, par puce."""
    octets = chemin.read_bytes()
    magie, nombre = struct.unpack_from(">II", octets)
    assert magie == 0xCAFEBABE, "ce n'est pas un exécutable universel"
    tranches = {}
    for rang in range(nombre):
        _, _, debut, taille, puissance = struct.unpack_from(">5I", octets, 8 + rang * 20)
        assert debut % (1 << puissance) == 0, "une tranche n'est pas alignée"
        tranche = Tranche(octets[debut:debut + taille])
        tranches[tranche.puce] = tranche
    return tranches
