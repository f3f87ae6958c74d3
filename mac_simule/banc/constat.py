# Ce que le projecteur reçoit (etat/reception), et ce qu'il en dit, en mots de plateau.

import contextlib
import pathlib
import struct
import typing

PERTE = 1_000_000_000  # ns : au-delà, sans trame, un récepteur tient le signal pour perdu
# Le bilan du récepteur, entre deux fois l'instant de son dépôt.
FORME = struct.Struct("=Q QQqqIBBBx Q")
# La limite enfreinte, dans l'ordre des verdicts ; vide pour un signal correct.
DEFAUTS = (
    "",
    "la ligne n'est pas réglée pour le DMX (250\u202f000 bauds, 8 bits, 2 bits d'arrêt)",
    "BREAK trop court, moins de 88 µs",
    "marque après BREAK trop courte, moins de 8 µs",
    "trame coupée par la suivante",
    "trame qui n'a pas ses 513 créneaux",
    "code de départ différent de 0",
    "plus d'une seconde entre deux trames",
    "BREAK lisible, mais sous les 92 µs demandées à un émetteur",
    "marque lisible, mais sous les 12 µs demandées à un émetteur",
)


class Reception(typing.NamedTuple):
    trames: int
    correctes: int
    derniere_trame: int  # ns de CLOCK_MONOTONIC
    derniere_comprise: int  # 0 : le projecteur n'a rien compris
    millitrames: int  # par seconde
    niveau_min: int
    niveau_max: int
    verdict: int


class Constat(typing.NamedTuple):
    correct: bool
    niveau: float  # de 0 à 1, ce que le projecteur éclaire
    lumiere: str
    reception: str
    diagnostic: str


# Rien tant qu'aucun émetteur n'a été ouvert. Une lecture peut tomber au milieu d'une écriture : elle
# ne compte que bornée des deux mêmes instants, et confirmée par la suivante.
def lire_reception(racine):
    lue = None
    for _ in range(100):
        precedente, lue = lue, b""
        with contextlib.suppress(OSError):
            lue = pathlib.Path(racine, "etat/reception").read_bytes()
        if len(lue) != FORME.size:
            return None
        debut, *bilan, fin = FORME.unpack(lue)
        if lue == precedente and debut == fin:
            return Reception(*bilan)
    return None


def pour_cent(niveau):
    return f"{(niveau * 100 + 127) // 255} %"


def lumiere(recue):
    if recue.niveau_min != recue.niveau_max:
        return f"Canaux de {pour_cent(recue.niveau_min)} à {pour_cent(recue.niveau_max)}"
    nom = {0: "Noir, ", 255: "Plein feu, "}.get(recue.niveau_max, "Allumé à ")
    return nom + pour_cent(recue.niveau_max)


# À la française : virgule, et espace fine entre les milliers.
def cadence(recue):
    par_seconde = f"{recue.millitrames / 1000:.1f}".replace(".", ",")
    trames = f"{recue.trames:,}".replace(",", "\u202f")
    return f"{par_seconde} trames par seconde, {trames} reçues"


def constater(recue, maintenant):
    if not recue or not recue.trames or maintenant - recue.derniere_trame > PERTE:
        return Constat(False, 0, "Aucun signal", "Le projecteur attend des trames DMX.", "")
    faute = DEFAUTS[recue.verdict]
    suivie = recue.derniere_comprise and maintenant - recue.derniere_comprise <= PERTE
    return Constat(not faute, recue.niveau_max / 255 if suivie else 0,
                   lumiere(recue) if suivie else "Signal illisible", cadence(recue),
                   f"Signal fautif : {faute}" if faute else "Signal correct")
