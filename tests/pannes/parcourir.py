"""Parcourt le véritable assistant avec une panne à la fois, et juge ce qui en reste.

Utilisation : parcourir.py CONSTRUCTION [--ecrire]   (--ecrire met à jour docs/robustesse.md)
"""
import collections
import concurrent.futures
import pathlib
import re
import subprocess
import sys
import tempfile

CONSTRUCTION = pathlib.Path(sys.argv[1]).resolve()
DOCUMENT = pathlib.Path(__file__).resolve().parents[2] / "docs/robustesse.md"
PAQUET = CONSTRUCTION / "Assistant Lumivia.app"
MAISON = "/Users/Zoé du son/Library/"
JOURNAL = MAISON + "Logs/Assistant Lumivia.log"
DOSSIER = MAISON + "Application Support/Assistant Lumivia"
SCRIPT = DOSSIER + "/retirer-ancien-pilote.command"
AGENT = MAISON + "LaunchAgents/fr.voltaris.assistant-lumivia.relance.plist"
MARQUE = MAISON + "Preferences/fr.voltaris.assistant-lumivia/redemarrageEnAttenteDepuisDemarrage"

# Le Terminal de ces Mac joue le retrait d'un trait ; kmutil en dit plus qu'un tube n'en contient.
OUTILS = {"open": """#!/bin/sh
[ "$1" = -a ] || exit 0
script=$LUMIVIA_MAC$3 resultat=${3%/*}/resultat-retrait.txt
[ -x "$script" ] && rm -rf "$LUMIVIA_MAC"/Library/Extensions/*.kext || exit 1
! grep -q '"oui" = "oui"' "$script" || echo 'A system reboot is required' >"$script.affiche"
echo 'sauvegarde : /x' >>"$script.affiche"
mv "$script.affiche" "$LUMIVIA_MAC$resultat"
""", "kmutil": '#!/bin/sh\nexec cat "$LUMIVIA_MAC/etat/listage"\n'}
LISTAGE = "".join(f"com.exemple.pilote{n}\t1.0\t/Library/Extensions/N.kext\n" for n in range(3000))
DESACTIVEE = r"*\t\t658CPPCMJJ\tcom.ftdi.vcp.dext (1.6/0)\tNullDriver\t[activated disabled]"
RAPPORT = "Copier le rapport pour le support"
ECHEC = "Le retrait n'a pas abouti"
VITE, LENT = "@vitesse_horloge=10", "@vitesse_horloge=0.05"
GESTES = [["Bienvenue", "Analyser mon Mac"], ["Résultat de l'analyse", "Continuer", VITE],
          ["Retirer l'ancien pilote", "Retirer", LENT],
          [ECHEC, "Réessayer", VITE], ["Branchez l'émetteur", "Réessayer"],
          ["Désactiver le pilote FTDI", "Ouvrir les Réglages",
           "@extensions_systeme=" + DESACTIVEE, "J'ai terminé"],
          ["Redémarrer le Mac", "Redémarrer maintenant", RAPPORT, "fermer"],
          ["Tester avec votre projecteur", "Allumer", "Clignoter", "Éteindre", "Non"],
          ["Le projecteur ne réagit pas", "Refaire le test"],
          ["Tester avec votre projecteur", "Allumer", "Oui"],
          ["Tout fonctionne 🎉", RAPPORT, "Quitter"]]

PAREIL = ("comme si de rien n'était", "rien de plus")
# Ce qui échoue, ce que voit la personne, ce que dit le journal.
NATURES = {
    "le journal": (PAREIL[0], "la ligne manque au fichier, pas au rapport"),
    "Info.plist": ("« Version ? » en bas de la fenêtre", "« Démarrage de l'assistant ? »"),
    "un outil interrogé": ("le parcours de ce que l'outil n'a pas dit", "le diagnostic sans cela"),
    "le registre USB": ("« Branchez l'émetteur », puis la suite", "« aucun » émetteur"),
    "le script de retrait": ("« Le retrait n'a pas abouti », « Réessayer »",
                             "« Impossible d'écrire le script : » et la cause"),
    "le Terminal": ("« Le retrait n'a pas abouti », « Réessayer »", PAREIL[1]),
    "le résultat du retrait": ("la page d'attente, une seconde de plus", PAREIL[1]),
    "la marque du redémarrage": ("au pire, un retrait proposé de nouveau", PAREIL[1]),
    "les Réglages": ("rien ne s'ouvre, la page reste", PAREIL[1]),
    "l'agent de relance": (PAREIL[0], "« Relance automatique impossible : » et la cause"),
    "la demande de redémarrage": ("la page reste", PAREIL[1]),
    "la bibliothèque D2XX": ("« Test impossible », puis « Allumer » à nouveau",
                             "« D2XX introuvable : » et la cause"),
}
DIAGNOSTIC = re.compile(
    r"Diagnostic :\nMac : (.*), (puce Apple|Intel), macOS 14\.5\.0\n"
    r"Émetteur\(s\) FTDI 0403:6001 : (A1B2C3|aucun)\n"
    r"D2xxHelper : fichier (présent|absent), chargé (oui|non)\n"
    r"Anciens pilotes FTDI : (aucun|/Library/Extensions/.*)\n"
    r"Pilote FTDI DriverKit : (absent|activé|désactivé)")


def creer_modele(nom, scenario, dossier):
    mac = dossier / nom
    subprocess.run([CONSTRUCTION / "mac_simule/racine/creer_mac", "--utilisateur", "Zoé du son",
                    "--scenario", scenario, mac], check=True, stdout=subprocess.DEVNULL)
    for outil, texte in OUTILS.items():
        (mac / "usr/bin" / outil).write_text(texte)
    (mac / "etat/vitesse_horloge").write_text("0.05")
    (mac / "etat/listage").write_text(LISTAGE + (mac / "etat/kexts_charges").read_text())
    (mac / "Applications/Assistant Lumivia.app").symlink_to(PAQUET)
    if nom == "rouvert":
        for chemin in (AGENT, JOURNAL):
            pathlib.Path(f"{mac}{chemin}").parent.mkdir(exist_ok=True)
            pathlib.Path(f"{mac}{chemin}").write_text("[2026-01-01 00:00:00] Avant\n")
    return mac


def lignes_du_journal(texte):
    lignes = re.split(r"^\[[-\d]{10} [:\d]{8}\] ", texte, flags=re.M)[1:]
    return [ligne.rstrip("\n") for ligne in lignes]


class Vie:
    """Un passage du programme : ce qu'il a montré, ce qu'il a noté, ce qu'il a laissé."""

    def __init__(self, modele, genre="", rang=0):
        self.nom = f"{modele.name}, {genre} n° {rang}"
        self.genre = genre
        with tempfile.TemporaryDirectory(prefix="une panne été ") as dossier:
            self.mac = f"{dossier}/mac"
            subprocess.run(["cp", "-a", modele, self.mac], check=True)
            fin = subprocess.run(
                [PAQUET / "Contents/MacOS/Assistant Lumivia"], capture_output=True, text=True,
                stdin=subprocess.DEVNULL, timeout=120, env={
                    "PATH": "/usr/bin:/bin", "LANG": "C.UTF-8", "HOME": dossier,
                    "LUMIVIA_MAC": self.mac, "QT_QPA_PLATFORM": "offscreen",
                    "LUMIVIA_GESTES": "\n".join("\t".join(gestes) for gestes in GESTES),
                    "LUMIVIA_PANNE": f"{genre} {rang}",
                    "LD_PRELOAD": str(CONSTRUCTION / "tests/pannes/libpannes.so")})
            self.evenements = [ligne.split("\t") for ligne in fin.stdout.splitlines()]
            self.bien_fini = fin.returncode == 0 and not re.search(
                "Sanitizer|runtime error|terminate called", fin.stderr)
            self.sortie = fin.stdout + fin.stderr
            self.fichiers = {nom: self.lire(nom) for nom in (JOURNAL, SCRIPT, AGENT, MARQUE)}
            self.demarrage = self.lire("/etat/demarrage").strip()
            self.restes = [f.name for f in pathlib.Path(self.mac).rglob("*")
                           if re.search(r"\.\w{6}$", f.name)]
            self.redemarre = self.lire("/etat/redemarrage_demande") is not None
        # Une page qui avance seule peut passer entre deux regards.
        self.pages = [page for page in self.dits("page") if not page.endswith("en cours…")]
        self.alertes = self.dits("alerte")
        self.rapport = "".join(self.dits("rapport")).replace("\\n", "\n")
        self.journal = lignes_du_journal(self.rapport)
        self.comptes = {e[1]: int(e[2]) for e in self.evenements if e[0] == "compte"}

    def lire(self, chemin):
        fichier = pathlib.Path(self.mac + chemin)
        return fichier.read_text() if fichier.is_file() else None

    def dits(self, genre):
        return [e[1] for e in self.evenements if e[0] == genre]

    def nature(self):
        """Ce que servait l'appel qui a échoué ; rien quand la panne n'a pas été atteinte."""
        self.avant = ""  # la page ou le clic qui précède
        for genre, *texte in self.evenements:
            if genre == "panne":
                chemin = self.chemin = texte[0].replace(self.mac, "")
                break
            self.avant = texte[0] if genre in ("page", "clic") else self.avant
        else:
            return None
        for debut, nature in (
                (JOURNAL, "le journal"), (SCRIPT, "le script de retrait"),
                ("/etat/usb", "le registre USB"), ("/etat/redem", "la demande de redémarrage"),
                (DOSSIER + "/resultat", "le résultat du retrait"), (AGENT, "l'agent de relance"),
                (MARQUE, "la marque du redémarrage")):
            if chemin.startswith(debut):
                return nature
        if self.genre == "mkdir":
            return {"Retirer": "le script de retrait", "Redémarrer maintenant": "l'agent de relance"
                    }.get(self.avant, "la marque du redémarrage")
        if PAQUET.name in chemin:
            return "la bibliothèque D2XX" if self.genre == "dlopen" else "Info.plist"
        return {"Retirer": "le Terminal",
                "Ouvrir les Réglages": "les Réglages"}.get(self.avant, "un outil interrogé")

    def fautes(self, temoin):
        """Ce qui n'est pas comme il se doit, d'après le passage sans panne."""
        nature = self.nature()
        pareil = (self.pages, self.alertes, self.journal) == (
            temoin.pages, temoin.alertes, temoin.journal)
        ecrit = lignes_du_journal(self.fichiers[JOURNAL] or "")
        if "rouvert" in self.nom:
            yield "le journal d'avant est perdu", ecrit[:1] != ["Avant"]
            ecrit = ecrit[1:]
        perdues = collections.Counter(self.journal) - collections.Counter(ecrit)
        note = lambda debut: sum(ligne.startswith(debut) for ligne in self.journal)
        yield "la fin est mauvaise", not self.bien_fini
        yield "la dernière page manque", self.pages[-1:] != temoin.pages[-1:]
        yield "un fichier temporaire reste", bool(self.restes)
        yield "le rapport manque", not self.rapport.startswith("Assistant Lumivia — rapport\n")
        yield "la racine se lit", self.mac in self.rapport + "".join(self.alertes)
        yield "une cause est en anglais", bool(
            re.search("temporar|output error|space", self.rapport))
        yield "le journal perd des lignes", perdues.total() > (nature == "le journal")
        yield "le journal a une ligne en trop ou coupée", bool(
            collections.Counter(ecrit) - collections.Counter(self.journal))
        entier = temoin.fichiers[SCRIPT] or ""
        yield "le script n'est pas entier", self.fichiers[SCRIPT] not in (
            None, entier, entier.replace('"oui" = "oui"', '"non" = "oui"'))
        yield "la marque n'est pas entière", self.fichiers[MARQUE] not in (None, self.demarrage)
        yield "la demande de redémarrage manque", \
            self.redemarre != temoin.redemarre and nature != "la demande de redémarrage"
        yield "l'agent n'est pas entier", self.fichiers[AGENT] != (
            None if note("Relance automatique impossible") else temoin.fichiers[AGENT])
        yield "une ligne du journal est imprévue", not all(
            ligne in temoin.journal or DIAGNOSTIC.fullmatch(ligne) or re.match(
                "Impossible d'écrire le script : « /|Relance automatique impossible : « /|"
                "D2XX introuvable : /Applications|Démarrage de l'assistant .$|"
                r"Résultat du retrait \(ok\) :\n", ligne) for ligne in self.journal)
        inoffensive = self.genre == "write coupé" or (
            self.genre in ("read", "close") and nature in ("le Terminal", "les Réglages"))
        if inoffensive or NATURES[nature] == PAREIL or nature in (
                "le journal", "les Réglages", "le résultat du retrait",
                "la demande de redémarrage"):
            yield "la panne se voit", not pareil
        elif nature in ("le script de retrait", "le Terminal"):
            yield "l'échec ne se montre pas une fois", self.pages.count(ECHEC) != 1
            yield "la cause manque", \
                note("Impossible d'écrire le script") != (nature == "le script de retrait")
        elif nature == "l'agent de relance":
            yield "la cause manque", not note("Relance automatique impossible")
        elif nature == "la bibliothèque D2XX":
            yield "l'alerte manque", not self.alertes[0].startswith(
                "Test impossible La bibliothèque de test est introuvable")
            yield "la cause manque", not note("D2XX introuvable : /Applications")
        elif nature == "Info.plist":
            yield "les pages changent", self.pages != temoin.pages
        elif nature == "un outil interrogé":
            absent = {"kmutil": "chargé non", "systemextensionsctl": "DriverKit : absent"}.get(
                self.chemin.split("/")[-1], "Diagnostic")
            yield "un outil muet a parlé", self.avant == "Analyse en cours…" and not any(
                absent in ligne for ligne in self.journal)
        elif nature == "le registre USB" and self.genre != "close":
            yield "un émetteur se voit", self.avant != "J'ai terminé" and \
                "0403:6001 : aucun" not in self.rapport
            yield "la page à suivre manque", "rouvert" in self.nom and self.avant != RAPPORT and \
                "Branchez l'émetteur" not in self.pages


def tableau(points):
    rangees = ["| ce qui échoue | appels et points atteints | ce que voit la personne | "
               "ce que dit le journal |", "|---|---|---|---|"]
    for nature, (vu, note) in NATURES.items():
        appels = ", ".join(f"{genre} {n}" for (autre, genre), n in sorted(points.items())
                           if autre == nature)
        rangees.append(f"| {nature} | {appels} | {vu} | {note} |")
    return "\n".join(rangees + ["", f"{sum(points.values())} pannes en tout."])


def main():
    points, mauvaises = collections.Counter(), 0
    with tempfile.TemporaryDirectory() as dossier, concurrent.futures.ThreadPoolExecutor(2) as deux:
        taches = []
        for nom, scenario in (("réparer", "complet"), ("rouvert", "pret")):
            modele = creer_modele(nom, scenario, pathlib.Path(dossier))
            temoin = Vie(modele)
            print(temoin.nom, temoin.comptes, flush=True)
            # Un outil s'écoule en plus ou moins de lectures d'une fois à l'autre.
            taches += [(deux.submit(Vie, modele, genre, rang), temoin)
                       for genre, compte in temoin.comptes.items()
                       for rang in range(1, compte + 1 + 4 * (genre == "read"))]
        for tache, temoin in taches:
            vie = tache.result()
            if (nature := vie.nature()) is None:
                continue
            points[nature, vie.genre] += 1
            fautes = [phrase for phrase, vraie in vie.fautes(temoin) if vraie]
            if fautes:
                mauvaises += 1
                print(f"\n{vie.nom}, {nature} : {', '.join(fautes)}\n{vie.sortie}", flush=True)
    texte = tableau(points)
    print(texte)
    if "--ecrire" in sys.argv:
        document = DOCUMENT.read_text()
        DOCUMENT.write_text(re.sub(r"(<!-- tableau -->\n).*?(<!-- fin -->)",
                                   lambda m: f"{m[1]}{texte}\n{m[2]}", document, flags=re.S))
    return 1 if mauvaises or len({n for n, _ in points}) != len(NATURES) else 0


sys.exit(main())
