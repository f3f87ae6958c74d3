"""Parcourt le véritable assistant avec une panne à la fois, ou une mort suivie d'une seconde vie, et
juge ce qui en reste.

Utilisation : parcourir.py CONSTRUCTION [--ecrire]
Chaque rangée du tableau de docs/robustesse.md est une chose qui peut échouer ; --ecrire y met à
jour les appels et les points atteints.
"""
import collections
import concurrent.futures
import pathlib
import re
import signal
import subprocess
import sys
import tempfile

CONSTRUCTION = pathlib.Path(sys.argv[1]).resolve()
RACINE = pathlib.Path(__file__).resolve().parents[2]
DOCUMENT = RACINE / "docs/robustesse.md"
PAQUET = CONSTRUCTION / "Assistant Lumivia.app"
MAISON = "/Users/Zoé du son/Library/"
JOURNAL = MAISON + "Logs/Assistant Lumivia.log"
DOSSIER = MAISON + "Application Support/Assistant Lumivia"
SCRIPT = DOSSIER + "/retirer-ancien-pilote.command"
RESULTAT = DOSSIER + "/resultat-retrait.txt"
AGENT = MAISON + "LaunchAgents/fr.voltaris.assistant-lumivia.relance.plist"
DEMARRAGE, DEMANDE = "/etat/demarrage", "/etat/redemarrage_demande"
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
RAPPORT = "Copier le rapport pour le support"
ECHEC = "Le retrait n'a pas abouti"
GESTES = RACINE.joinpath("tests/pannes/parcours.gestes").read_text()

NATURES = {JOURNAL: "le journal", SCRIPT: "le script de retrait", "/etat/usb": "le registre USB",
           RESULTAT: "le résultat du retrait", AGENT: "l'agent de relance",
           "réveil": "le réveil de la boucle",
           MARQUE: "la marque du redémarrage", DEMANDE: "la demande de redémarrage"}
CAUSES = {"le script de retrait": "Impossible d'écrire le script : « /",
          "l'agent de relance": "Relance automatique impossible : « /",
          "la bibliothèque D2XX": "D2XX introuvable : /Applications"}
DIAGNOSTIC = re.compile(
    r"Diagnostic :\nMac : (.*), (puce Apple|Intel), macOS (14\.5\.0|15\.3\.1)\n"
    r"Émetteur\(s\) FTDI 0403:6001 : (A1B2C3|aucun)\n"
    r"D2xxHelper : fichier (présent|absent), chargé (oui|non)\n"
    r"Anciens pilotes FTDI : (aucun|/Library/Extensions/.*)\n"
    r"Pilote FTDI DriverKit : (absent|activé|désactivé)")


def creer_modele(nom, scenario, dossier):
    mac = dossier / nom
    subprocess.run([RACINE / "mac_simule/racine/creer_mac", "--utilisateur", "Zoé du son",
                    "--scenario", scenario, mac], check=True, stdout=subprocess.DEVNULL)
    for outil, texte in OUTILS.items():
        (mac / "usr/bin" / outil).write_text(texte)
    (mac / "etat/vitesse_horloge").write_text("0.05")
    (mac / "etat/listage").write_text(LISTAGE + (mac / "etat/kexts_charges").read_text())
    (mac / "Applications/Assistant Lumivia.app").symlink_to(PAQUET)
    # D'une fois d'avant : un temporaire de processus mort, un résultat (en dossier), une marque.
    for chemin in ((AGENT, JOURNAL, MARQUE) if nom == "rouvert" else
                   (SCRIPT + ".0zzzzz", RESULTAT + "/dedans")):
        pathlib.Path(f"{mac}{chemin}").parent.mkdir(parents=True, exist_ok=True)
        pathlib.Path(f"{mac}{chemin}").write_text("[2026-01-01 00:00:00] Avant\n")
    return mac


def lignes_du_journal(texte):
    return re.split(r"\n*^\[[-\d]{10} [:\d]{8}\] ", texte.rstrip("\n"), flags=re.M)[1:]


class Vie:
    """Un passage du programme : ce qu'il a montré, ce qu'il a noté, ce qu'il a laissé."""

    def __init__(self, modele, genre="", rang=0, mort=False):
        self.nom = f"{modele.name}, {'mort, ' * mort}{genre} n° {rang}"
        self.genre = genre
        with tempfile.TemporaryDirectory(prefix="une panne été ") as dossier:
            self.mac = f"{dossier}/mac"
            subprocess.run(["cp", "-a", modele, self.mac], check=True)
            fin = self.vivre(dossier, f"{'mort ' * mort}{genre} {rang}")
            self.meurt = fin.returncode == -9
            if self.meurt:
                fin = self.vivre(dossier, "")
            self.bien_fini = fin.returncode == 0
            self.sortie = fin.stdout + fin.stderr
            tous = [str(f) for f in pathlib.Path(self.mac).rglob("*")]
            self.restes = [nom for nom in tous if re.search(r"\.\w{6}$", nom)]
            self.fichiers = {nom: pathlib.Path(self.mac + nom).read_text(errors="replace")
                             for nom in (JOURNAL, SCRIPT, AGENT, MARQUE, DEMARRAGE, DEMANDE)
                             if self.mac + nom in tous}
        # Une page qui avance seule peut passer entre deux regards.
        self.pages = [page for page in self.dits("page") if not page.endswith("en cours…")]
        self.alertes = self.dits("alerte")
        self.rapport = "".join(self.dits("rapport")).replace("\v", "\n")
        self.journal = lignes_du_journal(self.rapport)
        # La page ou le clic qui précède la panne, et ce qu'elle a touché.
        avant, self.panne, apres = fin.stdout.partition("panne\t")
        self.avant = re.findall("^(?:page|clic)\t(.*)", "page\t\n" + avant, re.M)[-1]
        self.chemin = apres.partition("\n")[0].replace(self.mac, "")
        # Ce qui n'a pas pu être retiré, et reste sans gêner.
        self.refuse = self.genre == "unlink" and RESULTAT not in self.chemin and self.chemin
        self.restes = [nom for nom in self.restes if nom != f"{self.mac}{self.refuse}"]
        self.fichiers.pop(self.refuse, None)

    def vivre(self, dossier, panne):
        return subprocess.run(
            [PAQUET / "Contents/MacOS/Assistant Lumivia"], capture_output=True, text=True,
            # Un lanceur peut laisser ce signal ignoré : la fin des outils se perdrait.
            preexec_fn=lambda: signal.signal(signal.SIGCHLD, signal.SIG_IGN),
            stdin=subprocess.DEVNULL, timeout=120, env={
                "PATH": "/usr/bin:/bin", "LANG": "C.UTF-8", "HOME": dossier,
                "LUMIVIA_MAC": self.mac, "LUMIVIA_GESTES": GESTES, "LUMIVIA_PANNE": panne,
                "QT_QPA_PLATFORM": "offscreen", "QT_QPA_GENERIC_PLUGINS": "robot",
                "QT_PLUGIN_PATH": CONSTRUCTION / "mac_simule/robot",
                "LD_PRELOAD": str(CONSTRUCTION / "tests/pannes/libpannes.so")})

    def restes_d_une_mort(self, temoin):
        """Ce qui n'est pas entier, ni absent, après la vie qui suit."""
        yield "la seconde vie finit mal", not self.bien_fini
        yield "une ligne du journal est collée à une autre", re.search(
            r"[^\n]\[\d{4}-\d\d-\d\d [:\d]{8}\] ", self.fichiers[JOURNAL])
        yield "le rapport est incomplet", not DIAGNOSTIC.search(self.rapport)
        yield from self.coupes(temoin)
        yield "l'agent n'est pas entier", self.fichiers.get(AGENT) not in (
            None, temoin.fichiers.get(AGENT))

    def coupes(self, temoin):
        """Ce qui s'écrit d'un coup et n'est ni entier ni absent."""
        yield "un fichier temporaire reste", self.restes
        entier = temoin.fichiers.get(SCRIPT, "")
        yield "le script n'est pas entier", self.fichiers.get(SCRIPT, entier) not in (
            entier, entier.replace('"oui" = "oui"', '"non" = "oui"'))
        demarrage = self.fichiers[DEMARRAGE].strip()
        yield "la marque n'est pas entière", self.fichiers.get(MARQUE, demarrage) != demarrage

    def dits(self, genre):
        return re.findall(f"^{genre}\t(.*)", self.sortie, re.M)

    def nature(self):
        """Ce que servait l'appel qui a échoué."""
        if self.genre in ("unlink", "rmdir") and self.chemin.startswith(RESULTAT):
            return NATURES[SCRIPT]
        for debut, nature in NATURES.items():
            if self.chemin.startswith(debut):
                return nature
        if self.genre == "mkdir":
            return {"Retirer": "le script de retrait",
                    "Redémarrer maintenant": "l'agent de relance"}.get(self.avant, NATURES[MARQUE])
        if self.chemin.endswith(".icns"):
            return "l'icône"
        if PAQUET.name in self.chemin:
            return "la bibliothèque D2XX" if self.genre == "dlopen" else "Info.plist"
        return {"Retirer": "le Terminal",
                "Ouvrir les Réglages": "les Réglages"}.get(self.avant, "un outil interrogé")

    def fautes(self, temoin):
        if self.meurt:
            return self.restes_d_une_mort(temoin)
        return self.suites_d_une_panne(temoin) if self.panne else ()

    def suites_d_une_panne(self, temoin):
        """Ce qui n'est pas comme il se doit, d'après le passage sans panne."""
        nature = self.nature()
        pareil = (self.pages, self.alertes, self.journal) == (
            temoin.pages, temoin.alertes, temoin.journal)
        ecrit = lignes_du_journal(self.fichiers.get(JOURNAL, ""))
        journal = ["Avant"] * ("rouvert" in self.nom) + self.journal
        perdues = collections.Counter(journal) - collections.Counter(ecrit)
        causes = [cause for ligne in self.journal for cause in CAUSES.values()
                  if ligne.startswith(cause)]
        yield "la fin est mauvaise", not self.bien_fini
        yield "la dernière page manque", self.pages[-1:] != temoin.pages[-1:]
        yield from self.coupes(temoin)
        yield "la racine se lit", self.mac in self.rapport + "".join(self.alertes)
        yield "une cause est en anglais", re.search("temporar|output error|space", self.rapport)
        yield "le journal perd des lignes", perdues.total() > (nature == "le journal")
        yield "le journal a une ligne en trop ou coupée", \
            collections.Counter(ecrit) - collections.Counter(journal)
        yield "la demande de redémarrage manque", (DEMANDE in self.fichiers) != (
            DEMANDE in temoin.fichiers) and nature != "la demande de redémarrage"
        yield "l'agent n'est pas entier", self.fichiers.get(AGENT) != (
            None if CAUSES["l'agent de relance"] in causes else temoin.fichiers.get(AGENT))
        yield "une ligne du journal est imprévue", not all(
            ligne in temoin.journal or DIAGNOSTIC.fullmatch(ligne) or re.match("|".join(
                [*CAUSES.values(), "Démarrage de l'assistant .$",
                 r"Résultat du retrait \(ok\) :\n"]), ligne) for ligne in self.journal)
        inoffensive = self.refuse or self.genre == "write coupé" or self.genre in {
            "le Terminal": ("read", "close"), "un outil interrogé": ("waitpid",)}.get(nature, ())
        yield "la cause n'est pas la bonne", causes != [
            cause for sienne, cause in CAUSES.items() if sienne == nature and not inoffensive]
        if inoffensive or nature in ("le journal", "les Réglages", "le résultat du retrait",
                                     "la demande de redémarrage", "le réveil de la boucle", "l'icône"):
            yield "la panne se voit", not pareil
        elif nature in ("le script de retrait", "le Terminal"):
            yield "l'échec ne se montre pas une fois", self.pages.count(ECHEC) != 1
        elif nature == "la bibliothèque D2XX":
            yield "l'alerte manque", not self.alertes[0].startswith(
                "Test impossible La bibliothèque de test est introuvable")
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


# Une mort où rien n'est en train de s'écrire ne laisse rien à réparer.
MORTELS = [*"open write rename link mkdir chmod spawn unlink rmdir".split(), "write coupé"]


def main():
    document, mauvaises, morts = DOCUMENT.read_text(), 0, 0
    points = {nature: collections.Counter()
              for nature in re.findall(r"^\| ([^|]*) \| [^|]* \d+ \|", document, re.M)}
    with tempfile.TemporaryDirectory() as dossier, concurrent.futures.ThreadPoolExecutor(2) as deux:
        taches = []
        for nom, scenario in (("réparer", "complet"), ("rouvert", "pret")):
            modele = creer_modele(nom, scenario, pathlib.Path(dossier))
            temoin = Vie(modele)
            if not temoin.bien_fini:
                sys.exit(f"{temoin.nom} : sans aucune panne, le parcours finit mal\n{temoin.sortie}")
            # Un outil s'écoule en plus ou moins de lectures d'une fois à l'autre.
            taches += [(deux.submit(Vie, modele, genre, rang, mort), temoin)
                       for genre, compte in (ligne.split("\t") for ligne in temoin.dits("compte"))
                       for mort in (False, True)[:1 + (genre in MORTELS)]
                       for rang in range(1, int(compte) + 1 + 4 * (genre == "read"))]
        for tache, temoin in taches:
            vie = tache.result()
            if vie.meurt:
                morts += 1
            elif vie.panne:
                points[vie.nature()][vie.genre] += 1
            if fautes := [phrase for phrase, vraie in vie.fautes(temoin) if vraie]:
                mauvaises += 1
                print(f"{vie.nom}, {vie.nature()} : {', '.join(fautes)}\n{vie.sortie}")
    for nature, atteints in points.items():
        appels = ", ".join(f"{genre} {n}" for genre, n in sorted(atteints.items()))
        print(f"{nature} : {appels}")
        document = re.sub(rf"^(\| {nature} \|) [^|]*", rf"\1 {appels} ", document, flags=re.M)
    total = sum(atteints.total() for atteints in points.values())
    print(f"{total} pannes et {morts} morts en tout.")
    if "--ecrire" in sys.argv:
        DOCUMENT.write_text(re.sub(r"\d+ pannes(?: et \d+ morts)? en tout",
                                   f"{total} pannes et {morts} morts en tout", document))
    return 1 if mauvaises or not all(points.values()) else 0


sys.exit(main())
