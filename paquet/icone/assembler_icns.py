"""Assemble un fichier .icns à partir de PNG carrés : assembler_icns.py SORTIE DOSSIER.

DOSSIER contient 16.png, 32.png, 64.png, 128.png, 256.png, 512.png et 1024.png (RVBA, 8 bits).
Les deux petites tailles à la densité ordinaire s'écrivent sous leur forme d'origine (trois plans
comprimés et un masque), la seule que toutes les versions de macOS lisent ; les autres sont des PNG.
"""

import struct
import sys
import zlib
from pathlib import Path

# Les tailles en points, à la densité ordinaire puis double, et le genre de leur entrée.
PLANS = [(b"is32", b"s8mk", 16), (b"il32", b"l8mk", 32)]
PNG = [(b"ic11", 32), (b"ic12", 64), (b"ic07", 128), (b"ic13", 256), (b"ic08", 256),
       (b"ic14", 512), (b"ic09", 512), (b"ic10", 1024)]


def morceaux(png):
    position = 8
    while position < len(png):
        longueur, genre = struct.unpack_from(">I4s", png, position)
        yield genre, png[position + 8:position + 8 + longueur]
        position += 12 + longueur


def paeth(gauche, haut, coin):
    ecarts = [(abs(haut - coin), gauche), (abs(gauche - coin), haut),
              (abs(gauche + haut - 2 * coin), coin)]
    return min(ecarts, key=lambda e: e[0])[1]


def pixels(png):
    """Les octets RVBA d'un PNG de 8 bits par composante, non entrelacé."""
    donnees, cote = b"", 0
    for genre, contenu in morceaux(png):
        if genre == b"IHDR":
            cote, _, *forme = struct.unpack(">II5B", contenu)
            if forme != [8, 6, 0, 0, 0]:
                sys.exit("Erreur : le PNG n'est pas en RVBA de 8 bits.")
        elif genre == b"IDAT":
            donnees += contenu
    brut, ligne, precedente = zlib.decompress(donnees), cote * 4, bytes(cote * 4)
    image = bytearray()
    for y in range(cote):
        filtre = brut[y * (ligne + 1)]
        courante = bytearray(brut[y * (ligne + 1) + 1:(y + 1) * (ligne + 1)])
        for x in range(ligne):
            gauche = courante[x - 4] if x >= 4 else 0
            coin = precedente[x - 4] if x >= 4 else 0
            haut = precedente[x]
            ajout = (0, gauche, haut, (gauche + haut) // 2, paeth(gauche, haut, coin))[filtre]
            courante[x] = (courante[x] + ajout) & 255
        image += courante
        precedente = courante
    return bytes(image)


def comprimer(plan):
    """Suites de 3 à 130 octets égaux, ou blocs d'au plus 128 octets recopiés."""
    sortie, copie, i = bytearray(), bytearray(), 0

    def vider():
        if copie:
            sortie.append(len(copie) - 1)
            sortie.extend(copie)
            copie.clear()

    while i < len(plan):
        suite = 1
        while suite < 130 and i + suite < len(plan) and plan[i + suite] == plan[i]:
            suite += 1
        if suite >= 3:
            vider()
            sortie += bytes([suite + 125, plan[i]])
            i += suite
        else:
            copie.append(plan[i])
            i += 1
            if len(copie) == 128:
                vider()
    vider()
    return bytes(sortie)


def entree(genre, donnees):
    return genre + struct.pack(">I", len(donnees) + 8) + donnees


def assembler(dossier):
    corps = b""
    for couleurs, masque, cote in PLANS:
        rvba = pixels((dossier / f"{cote}.png").read_bytes())
        corps += entree(couleurs, b"".join(comprimer(rvba[c::4]) for c in range(3)))
        corps += entree(masque, rvba[3::4])
    for genre, cote in PNG:
        corps += entree(genre, (dossier / f"{cote}.png").read_bytes())
    return entree(b"icns", corps)


if __name__ == "__main__":
    Path(sys.argv[1]).write_bytes(assembler(Path(sys.argv[2])))
