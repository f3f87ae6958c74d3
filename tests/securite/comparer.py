"""Compare la trace d'une démonstration aux tables du document de sécurité.

Utilisation : comparer.py DOCUMENT DOSSIER ROBOT, où DOSSIER est celui de l'essai (trace, mac,
images…) et ROBOT celui du greffon.
"""

import codecs
import fnmatch
import os
import re
import sys
from pathlib import Path

ECRITURES = re.compile(r"creat|(mk(dir|nod)|rename|link|symlink|unlink|rmdir|truncate|[lf]?chown|"
                       r"f?chmod|utime|l?setxattr|l?removexattr)(s|at|at2|nsat)?")
REGARDS = re.compile(r"(new)?[fl]?stat(x|at|fs)?|f?access(at|at2)?|readlink(at)?|chdir")
ROBOT = sys.argv[3]
EXECUTABLE = "/Assistant Lumivia.app/Contents/MacOS/Assistant Lumivia"
APPEL = re.compile(r"^(\w+)\((.*)\) += (.*)$", re.M)


def textes(arguments):
    """Les chaînes de l'appel ; un chemin relatif est joint au dossier du descripteur d'avant."""
    def lire(octets):
        return os.fsdecode(codecs.escape_decode(octets.encode())[0])
    motif = r'(?:<((?:[^>\\]|\\.)*)>, )?"((?:[^"\\]|\\.)*)"'
    return [os.path.join(lire(dossier), lire(nom)) for dossier, nom in re.findall(motif, arguments)]


def geste(appel, arguments, retour):
    """Ce que l'appel fait, et à quoi ; rien quand il ne touche à rien."""
    chaines = textes(arguments)
    if appel in ("open", "openat", "openat2"):
        ecrit = re.search(r"O_(WRONLY|RDWR|CREAT|TRUNC|APPEND)", arguments)
        return "écrit" if ecrit else "lit", chaines[:1]
    if ECRITURES.fullmatch(appel) and "EEXIST" not in retour:
        return "écrit", chaines
    if REGARDS.fullmatch(appel) and "AT_EMPTY_PATH" not in arguments:
        return "regarde", chaines[:1]
    if appel in ("connect", "bind", "sendto", "sendmsg") and "sun_path" in arguments:
        return "connecte", chaines[:1]
    if appel in ("connect", "bind") or appel == "socket" and "AF_UNIX" not in arguments:
        return "connecte", [arguments]
    return None, []


def gestes(trace, notre=False):
    """(geste, cibles) de l'assistant, et de ses enfants avant qu'ils changent de programme.

    La trace est celle d'un processus ou d'un fil ; celles de ses enfants sont à côté.
    """
    lue = trace.read_text(encoding="utf-8", errors="surrogateescape")
    for appel, arguments, retour in APPEL.findall(lue):
        reussi = re.match(r"\d+", retour)
        if appel in ("execve", "execveat"):
            programme, _, *suite = textes(arguments)
            if notre:
                yield "lance", [programme, *suite]
            if reussi:
                notre = programme.endswith(EXECUTABLE)
        elif notre and appel in ("clone", "clone3", "fork", "vfork") and reussi:
            yield from gestes(trace.with_suffix(f".{reussi[0]}"), notre)
        elif notre:
            quoi, cibles = geste(appel, arguments, retour)
            yield from ((quoi, [cible]) for cible in cibles)


def comme_le_document(chemin, essai):
    """Le chemin tel que le document l'écrit ; un argument d'un outil est déjà celui d'un Mac."""
    chemin = re.sub("/+", "/", chemin)
    maison = "/Users/" + (essai / "mac/etat/utilisateur").read_text().strip()
    for prefixe, ecrit in ((f"{essai}/mac{maison}", "~"), (maison, "~"),
                           (f"{essai}/mac/etat", "etat"), (f"{essai}/mac", ""),
                           (f"{essai}/images", "$LUMIVIA_DEMONSTRATION"), (ROBOT, "$QT_PLUGIN_PATH"),
                           (f"{essai}/releve", "$LUMIVIA_RELEVE_DMX"),
                           (f"{essai}/maison", "$HOME"), (f"{essai}", "$XDG_RUNTIME_DIR")):
        if chemin == prefixe or chemin.startswith(prefixe + "/"):
            return ecrit + chemin[len(prefixe):]
    if any(f"{lieu}/".startswith(chemin + "/") for lieu in (essai, ROBOT)):
        return "$XDG_RUNTIME_DIR"  # le chemin qui y mène
    return f"linux:{chemin}" if chemin.startswith("/") else chemin


def permet(rangee, fait):
    (_, permis, motif), (quoi, cible) = rangee, fait
    if quoi == "regarde" and permis != "connecte":
        # Ce qui se lit, s'écrit ou se lance peut aussi se regarder, et le chemin qui y mène.
        permis = quoi
        motif = re.sub(r" (-|x-|list|inspect).*", "", motif)
        if motif.startswith(cible + "/"):
            return True
    # Un fichier s'écrit par un voisin de même nom, suivi de six caractères.
    noms = [cible, re.sub(r"\.\w{6}$", "", cible)] if quoi == "écrit" else [cible]
    return permis == quoi and any(fnmatch.fnmatchcase(nom, motif) for nom in noms)


def main():
    document, essai = Path(sys.argv[1]), Path(sys.argv[2])
    rangees = re.findall(r"^\| (\(?)(lit|écrit|regarde|lance|connecte)\)? \| `([^`]+)` \|",
                         document.read_text(encoding="utf-8"), re.M)
    faits = {(quoi, " ".join(comme_le_document(cible, essai) for cible in cibles))
             for trace in essai.glob("trace.*") for quoi, cibles in gestes(trace)}
    inconnus = [fait for fait in faits if not any(permet(rangee, fait) for rangee in rangees)]
    jamais = [rangee[1:] for rangee in rangees
              if not rangee[0] and not any(permet(rangee, fait) for fait in faits)]
    for faute in sorted(inconnus):
        print("Le document ne le permet pas :", *faute)
    for faute in jamais:
        print("Le document le permet, et la démonstration ne l'a pas fait :", *faute)
    sys.exit(bool(inconnus or jamais))


main()
