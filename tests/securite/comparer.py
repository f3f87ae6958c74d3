"""Compare la trace d'une démonstration aux tables du document de sécurité.

Utilisation : comparer.py DOCUMENT DOSSIER, où DOSSIER est celui de l'essai (trace, mac, images…).
"""

import codecs
import fnmatch
import os
import re
import sys
from pathlib import Path

ECRITURES = re.compile(r"creat|(mk(dir|nod)|rename|link|symlink|unlink|rmdir|truncate|[lf]?chown|"
                       r"f?chmod|utime|l?setxattr|l?removexattr)(s|at|at2|nsat)?")
EXECUTABLE = "/Assistant Lumivia.app/Contents/MacOS/Assistant Lumivia"


def appels(trace):
    """[processus, appel et arguments, retour], dans l'ordre où les appels commencent."""
    tous, en_cours = [], {}
    for ligne in trace:
        pid, texte = ligne.rstrip("\n").split(None, 1)
        if reprise := re.match(r"<\.\.\. \w+ resumed>(.*)", texte):
            tous[en_cours[pid]][1] += reprise.group(1)
        elif re.match(r"\w+\(", texte):
            en_cours[pid] = len(tous)
            tous.append([pid, texte.removesuffix(" <unfinished ...>"), "?"])
    for appel in tous:
        if fin := re.match(r"(.*)\) += (-?\d+)(.*)", appel[1]):
            appel[1:] = fin.group(1), fin.group(2) + fin.group(3)
    return tous


def textes(arguments):
    """Les chaînes de l'appel ; un chemin relatif est joint au dossier du descripteur qui précède."""
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
    if appel in ("connect", "bind", "sendto", "sendmsg") and "sun_path" in arguments:
        return "connecte", chaines[:1]
    if appel in ("connect", "bind") or appel == "socket" and "AF_UNIX" not in arguments:
        return "connecte", [arguments]
    return None, []


def gestes(trace):
    """(geste, cibles) de l'assistant, et de ses enfants avant qu'ils changent de programme."""
    roles = {}
    for pid, texte, retour in appels(trace):
        appel, arguments = texte.split("(", 1)
        role, reussi = roles.get(pid), re.match(r"\d", retour)
        if appel in ("clone", "clone3", "fork", "vfork") and reussi and role:
            roles[retour.split()[0]] = role if "CLONE_THREAD" in arguments else "enfant"
        elif appel in ("execve", "execveat"):
            if role:
                programme, _, *suite = textes(arguments)
                yield "lance", [programme, *suite]
            if reussi:
                devient = textes(arguments)[0].endswith(EXECUTABLE)
                roles[pid] = "assistant" if devient else None
        elif role:
            quoi, cibles = geste(appel, arguments, retour)
            yield from ((quoi, [cible]) for cible in cibles)


def comme_le_document(chemin, essai):
    """Le chemin tel que le document l'écrit ; un argument d'un outil est déjà celui d'un Mac."""
    chemin = re.sub("/+", "/", chemin)
    maison = "/Users/" + (essai / "mac/etat/utilisateur").read_text().strip()
    for prefixe, ecrit in ((f"{essai}/mac{maison}", "~"), (maison, "~"),
                           (f"{essai}/mac/etat", "etat"), (f"{essai}/mac", ""),
                           (f"{essai}/images", "$LUMIVIA_DEMONSTRATION"),
                           (f"{essai}/releve", "$LUMIVIA_RELEVE_DMX"),
                           (f"{essai}/maison", "$HOME")):
        if chemin == prefixe or chemin.startswith(prefixe + "/"):
            return ecrit + chemin[len(prefixe):]
    return f"linux:{chemin}" if chemin.startswith("/") else chemin


def main():
    essai = Path(sys.argv[2])
    rangees = re.findall(r"^\| (\(?)(lit|écrit|lance|connecte)\)? \| `([^`]+)` \|",
                         Path(sys.argv[1]).read_text(encoding="utf-8"), re.M)
    permis = {(quoi, motif) for _, quoi, motif in rangees}
    inconnus, servis = set(), set()
    with open(essai / "trace", encoding="utf-8", errors="surrogateescape") as trace:
        for quoi, cibles in gestes(trace):
            cible = " ".join(comme_le_document(c, essai) for c in cibles)
            # Un fichier s'écrit par un voisin de même nom, suivi de six caractères.
            noms = {cible, re.sub(r"\.\w{6}$", "", cible)} if quoi == "écrit" else {cible}
            siens = {(q, m) for q, m in permis
                     if q == quoi and any(fnmatch.fnmatchcase(nom, m) for nom in noms)}
            servis |= siens
            if not siens:
                inconnus.add(f"{quoi} {cible}")
    jamais = [f"{quoi} {motif}" for hors, quoi, motif in rangees
              if not hors and (quoi, motif) not in servis]
    for faute in sorted(inconnus):
        print(f"Le document ne le permet pas : {faute}")
    for faute in jamais:
        print(f"Le document le permet, et la démonstration ne l'a pas fait : {faute}")
    if len(servis) < 10:
        print("La trace de l'assistant ne se lit plus.")
    sys.exit(bool(inconnus or jamais or len(servis) < 10))


if __name__ == "__main__":
    main()
