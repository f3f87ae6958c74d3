# Ce que `creer_mac` et le lanceur savent d'un Mac simulé : ses faits, et ce dont il est fait.

import contextlib
import datetime
import os
import pathlib
import re
import sys
import time

OUTILS = pathlib.Path(__file__).parent / "outils"  # posés tels quels sur la racine d'un Mac neuf
# Ce qu'un Mac neuf a en plus, hors du dossier personnel.
DOSSIERS = ("Applications", "Library/Application Support", "Library/Extensions", "private/tmp",
            "private/var/log", "etat/usb", "etat/debranches", "etat/fenetres")


def refuser(phrase):
    print(phrase, file=sys.stderr)
    sys.exit(2)


# Un texte qui n'est pas de l'UTF-8 garde ses octets ; ce qui ne se lit pas est vide.
def lire(fichier):
    with contextlib.suppress(OSError):
        return pathlib.Path(fichier).read_bytes().decode(errors="surrogateescape")
    return ""


def ecrire(fichier, texte):
    pathlib.Path(fichier).write_bytes(texte.encode(errors="surrogateescape"))


# La première ligne de RACINE/etat/NOM.
def fait(racine, nom):
    return lire(f"{racine}/etat/{nom}").partition("\n")[0]


# Ce que `kern.boottime` répond d'un Mac démarré maintenant, en heure locale.
def texte_demarrage():
    secondes, micro = divmod(time.time_ns() // 1000, 1_000_000)
    date = datetime.datetime.fromtimestamp(secondes).strftime("%a %b %e %H:%M:%S %Y")
    return f"{{ sec = {secondes}, usec = {micro} }} {date}\n"


# Les outils d'un Mac de cette version, par leurs chemins dans la racine.
def outils(version):
    majeure = int(re.match("[0-9]*", version)[0] or 0)
    for fichier in sorted(OUTILS.rglob("*")):
        # kmutil est venu avec macOS 11.
        if fichier.is_file() and (majeure >= 11 or fichier.name != "kmutil"):
            yield fichier.relative_to(OUTILS)


# Refuse un dossier où rien ne peut vivre. Un outil privé du droit d'être exécuté est en panne, il ne
# manque pas.
def exiger_entier(racine):
    if not os.path.isdir(f"{racine}/etat"):
        refuser(f"« {racine} » n'est pas un Mac simulé.")
    for element in ("etat/version", "etat/utilisateur", *DOSSIERS,
                    *outils(fait(racine, "version")),
                    f"Users/{fait(racine, 'utilisateur')}/Library"):
        if not os.path.exists(f"{racine}/{element}"):
            refuser(f"Le Mac simulé « {racine} » n'est pas entier : il manque « {element} ».")
