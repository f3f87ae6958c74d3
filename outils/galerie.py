# La page d'une galerie, d'après des démonstrations. Utilisation : galerie.py PRISES DOSSIER [AVANT]
#
# PRISES, et AVANT pour comparer, ont un dossier d'images par démonstration, nommé
# SCENARIO-REPONSE-APPARENCE-ECHELLE. Une même image, prise dans plusieurs scénarios, n'est qu'une fois
# dans la galerie, sous le nom de son empreinte.

import hashlib
import html
import pathlib
import shutil
import sys

TETE = """<!doctype html>
<html lang="fr" data-apparence="claire" data-echelle="2">
<meta charset="utf-8">
<title>Galerie de l'Assistant Lumivia</title>
<style>
body { font: 15px/1.5 system-ui, sans-serif; margin: 0 2rem 4rem; background: #ececee; color: #1d1d1f }
form { position: sticky; top: 0; padding: .8rem 0; background: #ececee; z-index: 1 }
label { margin-right: 1.2rem }
h2 { margin: 2.5rem 0 0 } h3 { margin: 1.6rem 0 .4rem; font-size: 1rem }
.rangee { display: flex; flex-wrap: wrap; gap: 1.2rem; align-items: flex-start }
figure { margin: 0; width: 380px }
figure.double { width: 772px } a + a { margin-left: 12px }
.changee img { outline: 2px solid #d9480f; outline-offset: 1px }
img { width: 380px; border-radius: 8px }
figcaption { font-size: .8rem; color: #55555a }
html[data-apparence=claire] .sombre, html[data-apparence=sombre] .claire,
html[data-echelle="1"] .x2, html[data-echelle="2"] .x1,
html[data-changees] figure:not(.changee), html[data-changees] section:not(:has(.changee)) { display: none }
</style>
"""
PIED = """<script>
const page = document.documentElement.dataset;
document.forms[0].addEventListener("input", ({ target }) => {
  if (target.type === "radio") page[target.name] = target.value;
  else if (target.checked) page.changees = "";
  else delete page.changees;
});
addEventListener("load", () => {
  const brisees = [...document.images].filter((image) => image.naturalWidth === 0);
  brisees.forEach((image) => { image.style.border = "4px solid red"; });
  page.brisees = brisees.length;
});
</script>
"""
CHOIX = """<form>
<label><input type="radio" name="apparence" value="claire" checked> Claire</label>
<label><input type="radio" name="apparence" value="sombre"> Sombre</label>
<label><input type="radio" name="echelle" value="1"> 1x</label>
<label><input type="radio" name="echelle" value="2" checked> 2x</label>
<label><input type="checkbox"> Seulement ce qui a changé</label>
%s
</form>
"""


# Les images de l'assistant (celles du banc disent l'heure) : { (parcours, apparence, échelle, nom,
# rang parmi celles de ce nom) : fichier }, dans l'ordre où elles ont été prises.
def prises(dossier):
    trouvees = {}
    # Le scénario qui passe par le plus de pages donne leur ordre.
    for demonstration in sorted(filter(pathlib.Path.is_dir, pathlib.Path(dossier).iterdir()),
                                key=lambda lue: (not lue.name.startswith("complet"), lue.name)):
        parcours, apparence, echelle = demonstration.name.rsplit("-", 2)
        for fichier in sorted(demonstration.glob("[0-9][0-9]-*.png")):
            nom = fichier.stem[3:]
            if not nom.startswith("banc-"):
                rang = sum(cle[:4] == (parcours, apparence, echelle, nom) for cle in trouvees)
                trouvees[parcours, apparence, echelle, nom, rang] = fichier
    return trouvees


class Galerie:
    # `avant` est vide quand on ne compare pas.
    def __init__(self, dossier, prises, avant):
        self.dossier, self.prises, self.avant = pathlib.Path(dossier), prises, avant

    # Le nom, dans la galerie, de ce fichier.
    def deposer(self, fichier):
        nom = hashlib.sha256(fichier.read_bytes()).hexdigest()[:16] + ".png"
        if not (self.dossier / nom).exists():
            shutil.copy(fichier, self.dossier / nom)
        return nom

    # Les noms de l'image d'avant, si elle est autre, et de celle d'aujourd'hui.
    def noms(self, cle):
        present, ancien = self.deposer(self.prises[cle]), self.avant.get(cle)
        avant = self.deposer(ancien) if ancien else present
        return (present,) if avant == present else (avant, present)

    def changee(self, cle):
        return len(self.noms(cle)) > 1 or bool(self.avant) and cle not in self.avant

    def figure(self, cle, legende):
        noms = self.noms(cle)
        classes = f"{cle[1]} x{cle[2]}" + " changee" * self.changee(cle) + " double" * (len(noms) > 1)
        if self.changee(cle):
            legende = ("Avant, après. " if len(noms) > 1 else "Nouvelle. ") + legende
        dite = html.escape(legende)
        vues = "".join(f'<a href="{nom}"><img src="{nom}" alt="{dite}"></a>' for nom in noms)
        return f'<figure class="{classes}">{vues}<figcaption>{dite}</figcaption></figure>'

    # Sous chaque titre de page, ses figures. Celles qui montrent la même chose n'en font qu'une, dont
    # la légende nomme tous les parcours.
    def par_page(self):
        pages = {}
        for cle in self.prises:
            memes = (cle[1:3], self.changee(cle), self.noms(cle))
            pages.setdefault(cle[3], {}).setdefault(memes, []).append(cle)
        for page, figures in pages.items():
            yield page, [self.figure(cles[0], ", ".join(dict.fromkeys(cle[0] for cle in cles)))
                         for cles in figures.values()]

    def par_scenario(self):
        parcours = {}
        for cle in self.prises:
            parcours.setdefault(cle[0], []).append(self.figure(cle, cle[3]))
        return parcours.items()

    def compte(self):
        if not self.avant:
            return f"{len(self.prises)} images"
        disparues = [cle for cle in self.avant if cle not in self.prises]
        return (f"{len(self.prises)} images, {sum(map(self.changee, self.prises))} changées, "
                f"{len(disparues)} disparues"
                + "".join(f"<br>Disparue : {' '.join(map(str, cle))}" for cle in disparues))

    def ecrire(self):
        corps = [CHOIX % self.compte()]
        for titre, groupes in (("Par page", self.par_page()), ("Par scénario", self.par_scenario())):
            corps.append(f"<h2>{titre}</h2>")
            corps += (f'<section><h3>{html.escape(nom)}</h3>\n<div class="rangee">'
                      f'{"".join(figures)}</div></section>' for nom, figures in groupes)
        (self.dossier / "index.html").write_text(TETE + "\n".join(corps) + PIED, encoding="utf-8")


source, galerie, *comparaison = sys.argv[1:]
Galerie(galerie, prises(source), prises(comparaison[0]) if comparaison else {}).ecrire()
