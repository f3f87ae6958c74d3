# La page d'une galerie : chaque image y est, une fois, et ce qui a changé se voit.
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

GALERIE = pathlib.Path(__file__).parents[2] / "outils/galerie.py"


class Galerie(unittest.TestCase):
    def page(self, **prises):
        with tempfile.TemporaryDirectory() as dossier:
            d = pathlib.Path(dossier)
            for chemin, contenu in prises.items():
                fichier = d.joinpath(*chemin.split("__"))
                fichier.with_suffix(".png").parent.mkdir(parents=True, exist_ok=True)
                fichier.with_suffix(".png").write_text(contenu)
            (d / "g").mkdir()
            avant = [d / "avant"] * (d / "avant").exists()
            subprocess.run([sys.executable, "-B", GALERIE, d / "apres", d / "g", *avant], check=True)
            lue = (d / "g/index.html").read_text()
            self.assertEqual(set(re.findall('src="(.*?)"', lue)), {f.name for f in d.glob("g/*.png")})
            return lue.replace("-", "_")

    def test_une_meme_page_de_deux_parcours_n_est_qu_une_fois_par_page(self):
        lue = self.page(**{"apres__a-oui-claire-1__01-debut": "x", "apres__b-oui-claire-1__02-debut": "x",
                           "apres__a-oui-claire-1__03-debut": "y", "apres__a-oui-claire-1__04-banc-": "z"})
        self.assertEqual(lue.count("<figure"), 2 + 3)
        self.assertIn("<figcaption>a_oui, b_oui<", lue)
        self.assertIn("\n3 images\n", lue)

    def test_ce_qui_a_change_est_a_cote_de_ce_que_c_etait(self):
        lue = self.page(**{"avant__a-oui-claire-1__01-debut": "x", "apres__a-oui-claire-1__01-debut": "y",
                           "avant__a-oui-claire-1__02-suite": "s", "apres__a-oui-claire-1__02-suite": "s",
                           "avant__a-oui-claire-1__03-partie": "p", "apres__a-oui-claire-1__03-neuve": "n"})
        self.assertIn("3 images, 2 changées, 1 disparues", lue)
        self.assertEqual(lue.count('changee double"'), 2)
        self.assertEqual(lue.count("Nouvelle. "), 4)
