"""Met une faute à la fois dans une copie du dépôt, et compte celles que les essais voient.

Utilisation : mutants.py [--graine N] [--taille N] [--filtre MOTIF] [--tableau DESCRIPTEUR]
Appelé par ./tester --mutants.
"""
import argparse
import collections
import concurrent.futures
import itertools
import os
import pathlib
import queue
import random
import re
import shutil
import signal
import subprocess
import sys
import time

import mutants_macos
import mutations

RACINE = pathlib.Path(__file__).resolve().parents[1]
CONSTRUCTION = "construction/mutants"  # dans chaque copie
SEUIL = 95  # %
LENT = 10  # s ; un essai plus long attend que tous les autres n'aient rien vu
# Les dossiers où mettre des fautes, et où chercher l'essai qui les voit : au plus près d'abord.
ETAPES = {
    "support": ("support", "diagnostic", "actions", "app", "parcours"),
    "diagnostic": ("diagnostic", "app", "parcours"),
    "actions": ("actions", "app", "parcours", "pannes"),
    "dmx": ("dmx", "app", "parcours"),
    "app": ("parcours", "app", "pannes"),
    "plateforme/posix": ("plateforme", "support", "actions", "diagnostic", "dmx", "app", "parcours",
                         "pannes"),
}
# Ceux qui, ensemble, passent par chaque page et chaque alerte.
PARCOURS = ("complet oui", "complet non", "sans-emetteur oui", "emetteur-occupe oui",
            "bibliotheque-absente oui", "mot-de-passe-refuse oui", "ancien-macos oui",
            "plus-tard oui", "relance-impossible oui", "reconstruction-non-confirmee oui")
CIBLES = {"parcours": ("paquet_simule",), "pannes": ("paquet_simule", "pannes"),
          "gnustep": ("paquet_simule", "proprietes_gnustep", "assistant_gnustep")}
SOCLE = ("robot", "variantes_d2xx")


def cibles(etape):
    return CIBLES.get(etape, (f"essais_{etape}",))


class Atelier:
    """Une copie du dépôt et sa construction, où vit une faute à la fois."""

    def __init__(self, rang, etapes):
        self.depot = RACINE / "construction/mutants" / str(rang)
        self.temporaire = pathlib.Path(os.environ["TMPDIR"]) / f"mutants-{rang}"
        self.trace = self.temporaire.with_suffix(".txt")
        self.recopier()
        if not self.lancer(["cmake", "--preset", "mutants"], 300) or not self.construire(
                *SOCLE, *(cible for etape in etapes for cible in cibles(etape)), delai=3600):
            self.renoncer("sans aucune faute, la copie ne se construit pas")

    def recopier(self):
        """Ne touche que ce qui a changé : le reste n'est pas à reconstruire."""
        def fichiers(racine):
            return {f.relative_to(racine) for f in racine.rglob("*") if f.is_file() and f.relative_to(
                racine).parts[0] not in ("construction", "sortie", "maison", ".git")}

        voulus = fichiers(RACINE)
        for de_trop in fichiers(self.depot) - voulus:
            (self.depot / de_trop).unlink()
        for nom in voulus:
            source, copie = RACINE / nom, self.depot / nom
            if not copie.is_file() or copie.read_bytes() != source.read_bytes():
                copie.parent.mkdir(parents=True, exist_ok=True)
                shutil.copy(source, copie)

    def renoncer(self, phrase):
        sys.exit(f"{self.trace.read_text(errors='replace')[-3000:]}\nErreur : {phrase}.")

    def lancer(self, commande, delai):
        """Vrai quand la commande réussit à temps. Rien de ce qu'elle a lancé ni écrit ne reste."""
        self.temporaire.mkdir(exist_ok=True)
        environnement = os.environ | {"TMPDIR": str(self.temporaire), "QT_QPA_PLATFORM": "offscreen",
                                      "LUMIVIA_PATIENCE": "30"}  # bien des fautes figent une page
        with open(self.trace, "wb") as trace:
            try:
                return subprocess.run(commande, cwd=self.depot, env=environnement, timeout=delai,
                                      stdin=subprocess.DEVNULL, stdout=trace,
                                      stderr=subprocess.STDOUT, check=False).returncode == 0
            except subprocess.TimeoutExpired:
                return False
            finally:
                while self.terminer():
                    pass
                shutil.rmtree(self.temporaire, ignore_errors=True)
                for lien in pathlib.Path("/tmp").glob("mac-*/racine"):  # d'un Terminal interrompu
                    if str(self.temporaire) in os.path.realpath(lien):
                        shutil.rmtree(lien.parent)

    def terminer(self):
        """Termine les processus que leur environnement rattache à cet atelier, et rend leur nombre."""
        marque, nombre = f"TMPDIR={self.temporaire}".encode(), 0
        for environnement in pathlib.Path("/proc").glob("[0-9]*/environ"):
            try:
                if marque in environnement.read_bytes().split(b"\0"):
                    os.kill(int(environnement.parent.name), signal.SIGKILL)
                    nombre += 1
            except OSError:
                pass  # le processus d'un autre, ou qui vient de finir
        return nombre

    def construire(self, *voulues, delai=900):
        return self.lancer(["cmake", "--build", CONSTRUCTION, "-j1", "--target", *voulues], delai)

    def essais(self, etape):
        """Les commandes des essais d'une étape, à lancer dans la copie."""
        if etape == "pannes":
            return [("python3", "-B", "tests/pannes/parcourir.py", CONSTRUCTION)]
        if etape == "parcours":
            return [("tests/parcours/parcourir", CONSTRUCTION, *p.split()) for p in PARCOURS] + [
                ("tests/securite/observer", CONSTRUCTION)]
        programme, trouves = f"{CONSTRUCTION}/tests/{etape}/essais_{etape}", []
        self.lancer([programme, "--gtest_list_tests", "--gtest_filter=-*.DISABLED_*"], 60)
        for ligne in self.trace.read_text().splitlines():
            nom = ligne.partition("#")[0].strip()
            if not ligne.startswith(" "):
                suite = nom
            elif suite.endswith("."):
                trouves.append((programme, f"--gtest_filter={suite}{nom}"))
        return trouves


class Jugement:
    """Les essais de chaque étape, et ce qu'ils disent d'une faute."""

    def __init__(self, ateliers, etapes):
        self.durees, self.essais = {}, {etape: ateliers[0].essais(etape) for etape in etapes}
        partager(ateliers, sum(self.essais.values(), []), self.mesurer)
        for etape in set(etapes) - {"parcours"}:
            self.essais[etape].sort(key=self.durees.get)

    def mesurer(self, atelier, essai):
        debut = time.monotonic()
        if not atelier.lancer(essai, 900):
            atelier.renoncer(f"sans aucune faute, « {' '.join(essai)} » échoue déjà")
        self.durees[essai] = time.monotonic() - debut

    def chercher(self, atelier, mutation):
        """Ce que devient la faute, et l'essai qui l'a vue."""
        for tard, etape in itertools.product((False, True), ETAPES[os.path.dirname(mutation.fichier)]):
            if not tard and not atelier.construire(*cibles(etape)):
                return "ne compile pas", ""
            for essai in [e for e in self.essais[etape] if (self.durees[e] > LENT) == tard]:
                # Deux fois : sur une machine chargée, un essai peut échouer sans avoir rien vu.
                if not any(atelier.lancer(essai, 30 + 10 * self.durees[essai]) for _ in range(2)):
                    # Il verra sans doute aussi la suivante, qui est voisine.
                    self.essais[etape].remove(essai)
                    self.essais[etape].insert(0, essai)
                    return "tué", f"par {' '.join(essai)}"
        return "survivant", ""

    def juger(self, atelier, mutation):
        fichier, debut = atelier.depot / mutation.fichier, time.monotonic()
        entier = fichier.read_text(encoding="utf-8")
        fichier.write_text(mutation.appliquer(entier), encoding="utf-8")
        try:
            sort, par = self.chercher(atelier, mutation)
        finally:
            fichier.write_text(entier, encoding="utf-8")
        print(f"{sort} en {time.monotonic() - debut:.0f} s {par}\n  {mutation.fichier}:{mutation.rang}\n"
              f"  - {mutation.avant}\n  + {mutation.apres}", flush=True)
        return sort


def partager(ateliers, taches, travail):
    """Donne à chaque atelier la première des tâches qui attendent, jusqu'à la dernière."""
    file = queue.SimpleQueue()
    for tache in taches:
        file.put(tache)

    def vider(atelier):
        try:
            while True:
                travail(atelier, file.get_nowait())
        except queue.Empty:
            pass

    with concurrent.futures.ThreadPoolExecutor() as fils:
        list(fils.map(vider, ateliers))


def tirer(options):
    """Une faute dans chacune des tranches égales que font les lignes de tous les fichiers."""
    hasard, lignes = random.Random(options.graine), collections.defaultdict(list)
    for chemin in (f for d in ETAPES for f in sorted((RACINE / d).glob("*.?pp"))):
        fichier = str(chemin.relative_to(RACINE))
        if re.search(options.filtre, fichier):
            for mutation in mutations.mutations(RACINE, fichier, hasard):
                lignes[fichier, mutation.rang].append(mutation)
    toutes = list(lignes.values())
    taille = min(options.taille, len(toutes))
    bornes = [len(toutes) * i // taille for i in range(taille + 1)] if taille else []
    return [hasard.choice(toutes[hasard.randrange(*tranche)]) for tranche in zip(bornes, bornes[1:])]


def equivalentes():
    """Celles qui ne changent rien de visible : fichier, ligne, ligne fautive."""
    liste = RACINE / "outils/mutants-equivalents.txt"
    for ligne in liste.read_text(encoding="utf-8").splitlines():
        if ligne.startswith("- "):
            avant = ligne[2:]
        elif ligne.startswith("+ "):
            yield fichier, avant, ligne[2:]
        elif ligne and ligne[0] not in "=#":
            fichier = ligne


def tableau(graine, sorts):
    colonnes = ("tué", "survivant", "équivalent", "ne compile pas")
    comptes = collections.Counter((nom, sort) for mutation, sort in sorts.items()
                                  for nom in (f"`{os.path.dirname(mutation.fichier)}/`", "**ensemble**"))
    yield "| dossier | tirés | tués | survivants | équivalents | ne compilent pas |"
    yield "|---|---|---|---|---|---|"
    for nom in [*(f"`{dossier}/`" for dossier in ETAPES), "**ensemble**"]:
        rangee = [comptes[nom, sort] for sort in colonnes]
        yield f"| {nom} | " + " | ".join(map(str, [sum(rangee), *rangee])) + " |"
    yield f"\nGraine : {graine}. Survivants :\n"
    for mutation in (m for m, sort in sorts.items() if sort == "survivant"):
        yield f"- `{mutation.fichier}`, `{mutation.avant}` devenu `{mutation.apres}`"


def juger_tirees(options, tirees):
    """Les fautes tirées au hasard dans le cœur : le compte de chaque sort."""
    connues = set(equivalentes())
    sorts = {mutation: "équivalent" if (mutation.fichier, mutation.avant, mutation.apres) in connues
             else "" for mutation in tirees}
    a_juger = collections.defaultdict(list)  # un fichier à la fois : il se reconstruit moins
    for mutation in (m for m, sort in sorts.items() if not sort):
        a_juger[mutation.fichier].append(mutation)
    etapes = dict.fromkeys(e for fichier in a_juger for e in ETAPES[os.path.dirname(fichier)])

    ateliers = preparer(etapes)
    jugement = Jugement(ateliers, etapes)
    print(f"→ {len(sorts)} fautes, graine {options.graine}", flush=True)
    partager(ateliers, sorted(a_juger.values(), key=len, reverse=True), lambda atelier, fautes:
             sorts.update((faute, jugement.juger(atelier, faute)) for faute in fautes))
    lignes = "\n".join(tableau(options.graine, sorts))
    print(lignes)
    if options.tableau is not None:
        with open(options.tableau, "r+", encoding="utf-8") as document:
            debut = document.read().partition("| dossier")[0].rstrip()
            document.seek(0)
            document.write(f"{debut}\n\n{lignes}\n")
            document.truncate()
    return collections.Counter(sorts.values())


def juger_choisies(fautes):
    """Celles de l'adaptateur de macOS, à l'essai que leur table nomme."""
    ateliers, sorts = preparer(("gnustep",)), []
    partager(ateliers, dict.fromkeys(faute.essai for faute in fautes), mutants_macos.mesurer)
    print(f"→ {len(fautes)} fautes dans plateforme/macos", flush=True)
    partager(ateliers, fautes, lambda atelier, faute: sorts.append(
        mutants_macos.juger(atelier, faute, cibles("gnustep"))))
    comptes = collections.Counter(sorts)
    print("plateforme/macos :", ", ".join(f"{nombre} {sort}" for sort, nombre in comptes.items()))
    return comptes


def preparer(etapes):
    print("→ Construction et essais sans aucune faute, dans deux copies du dépôt", flush=True)
    with concurrent.futures.ThreadPoolExecutor() as fils:
        return list(fils.map(Atelier, (1, 2), (etapes, etapes)))


def main():
    lecteur = argparse.ArgumentParser()
    lecteur.add_argument("--graine", type=int, default=1)
    lecteur.add_argument("--taille", type=int, default=80)
    lecteur.add_argument("--filtre", default="")
    lecteur.add_argument("--tableau", type=int)
    options = lecteur.parse_args()

    tirees = tirer(options)
    choisies = [f for f in mutants_macos.FAUTES if re.search(options.filtre, f.fichier)]
    if not tirees + choisies:
        sys.exit(f"Erreur : aucune faute à mettre dans « {options.filtre} ».")
    comptes = juger_tirees(options, tirees) if tirees else collections.Counter()
    bien = comptes["tué"] * 100 >= SEUIL * (comptes["tué"] + comptes["survivant"])
    macos = juger_choisies(choisies) if choisies else collections.Counter()
    # Les survivants du hasard ne sont un échec que trop nombreux ; ceux qui ont été choisis, toujours.
    echecs = (0 if bien else comptes["survivant"]) + len(choisies) - macos["tué"]
    print(f"{comptes['tué'] + macos['tué']} passed, {echecs} failed")
    return 1 if echecs else 0


if __name__ == "__main__":
    sys.exit(main())
