"""Les fautes ordinaires qu'un lexique simple sait mettre dans un source C++ : une à la fois.

La mise en forme du dépôt sert de grammaire : elle met un blanc autour de chaque opérateur à deux termes,
et des accolades à chaque corps.
"""
import re
from typing import NamedTuple

IGNORES = re.compile(
    r"//[^\n]*|/\*.*?\*/|^[ \t]*#[^\n]*|\bstatic_assert\s*\(.*?\);"
    r'|"(?:\\.|[^"\\])*"|(?<!\w)\'(?:\\[^\']+|[^\'\\])\'', re.S | re.M)
ECHANGES = {
    "<": ("<=", ">="), "<=": ("<", ">"), ">": (">=", "<="), ">=": (">", "<"), "==": ("!=",),
    "!=": ("==",), "&&": ("||",), "||": ("&&",), "+": ("-",), "-": ("+",), "*": ("/",), "/": ("*",),
    "%": ("*",), "&": ("|",), "|": ("&",), "+=": ("-=",), "-=": ("+=",), "++": ("--",),
    "--": ("++",), "true": ("false",), "false": ("true",), "break;": (";",), "continue;": (";",),
    "return;": (";",)}
OPERATEURS = re.compile(
    r"(?<=\s)(?:[<>=!]=|&&|\|\||[-+]=|[-<>+*/%&|])(?=\s)|(?:\+\+|--)(?=\w)"
    r"|\b(?:true|false)\b|\b(?:break|continue|return);")
NOMBRES = re.compile(r"(?<![\w.'])((?<=[({ ,])-1|0x[\dA-F]+|\d[\d']*(?:\.\d+)?)(?=[UL]*\b(?!>))", re.I)
CONDITIONS = re.compile(r"\b(?:if|while) (?=\()")
RETOURS = re.compile(r"\breturn ([^;]+);")
SANS_VALEUR = {"true", "false", "0", "nullptr", "std::nullopt", "{}"}
# Au début d'une instruction : un appel, une affectation ou un incrément.
APPEL = re.compile(r"(?<=[;{}])\s+()(?:[\w:]+(?:\(\))?(?:\.|->))*[\w:]+(?:<\w+>)?(?=\()")
AFFECTATION = re.compile(
    r"(?<=[;{}])\s+()(?:(?:[\w.\[\]*]|->)+ [-+]?= [^;{}]*|(?:\+\+|--)[^;)]+)(?=;)")
LETTRES = re.compile(r"\\(?:x[\dA-F]{2}|u[\dA-F]{4}|U[\dA-F]{8}|.)|([a-z])", re.I)


class Mutation(NamedTuple):
    fichier: str
    rang: int  # de la ligne, à partir de 1
    avant: str  # les lignes touchées, puis ce qu'elles deviennent : c'est le nom de la faute,
    apres: str  # où qu'elle aille dans le fichier
    debut: int
    fin: int
    remplacement: str

    def appliquer(self, texte):
        return texte[:self.debut] + self.remplacement + texte[self.fin:]


def masquer(texte):
    """Le même texte sans commentaires ni littéraux, chaque caractère à sa place ; puis les littéraux."""
    litteraux = []

    def cacher(trouve):
        vu = trouve.group()
        if vu[0] in "\"'":
            litteraux.append(trouve.span())
            return vu[0] + "_" * (len(vu) - 2) + vu[-1]
        return re.sub(r"[^\n]", " ", vu)

    return IGNORES.sub(cacher, texte), litteraux


def fermante(code, ouvrante):
    """La place qui suit la parenthèse fermante de celle-ci."""
    niveau = 0
    for place in range(ouvrante, len(code)):
        niveau += {"(": 1, ")": -1}.get(code[place], 0)
        if niveau == 0:
            return place + 1
    return len(code)


def voisins(nombre):
    if nombre == "-1":
        return ["0", "1"]
    if nombre[:2] in ("0x", "0X"):
        return [f"0x{int(nombre, 16) + 1:X}"]
    if re.fullmatch("0[0-7]+", nombre):
        return [f"0{int(nombre, 8) + 1:o}"]
    valeur = float(nombre) if "." in nombre else int(nombre.replace("'", ""))
    return [str(valeur + 1)] + [str(valeur - 1)] * (valeur > 0)


def remplacements(texte, hasard):
    """Chaque faute possible : début, fin, remplacement."""
    code, litteraux = masquer(texte)
    for debut, fin in litteraux:
        dedans = texte[debut + 1:fin - 1]
        if lettres := [m.start(1) for m in LETTRES.finditer(dedans) if m.group(1)]:
            place = debut + 1 + hasard.choice(lettres)
            yield place, place + 1, "y" if texte[place] == "x" else "x"
        elif texte[debut] == '"' or dedans[0] != "\\":
            yield debut + 1, fin - (texte[debut] == "'"), "x" + '"' * (texte[debut] == '"')
    for m in OPERATEURS.finditer(code):
        ligne = code[code.rfind("\n", 0, m.start()):code.find("\n", m.end())]
        if m.group() in ("+", "+=") and re.search("[\"']", ligne):
            continue  # des textes mis bout à bout : ils ne se retranchent pas
        yield from ((*m.span(), autre) for autre in ECHANGES[m.group()])
    for m in NOMBRES.finditer(code):
        yield from ((*m.span(1), autre) for autre in voisins(m.group(1)))
    for m in CONDITIONS.finditer(code):
        fin = fermante(code, m.end())
        if " = " not in code[m.end():fin]:
            yield m.end(), fin, f"(!{texte[m.end():fin]})"
    for m in RETOURS.finditer(code):
        if m.group(1) not in SANS_VALEUR:
            logique = re.search(r" ([<>=!]=|[<>]|&&|\|\|) |^!", m.group(1))
            yield *m.span(1), f"!({texte[m.start(1):m.end(1)]})" if logique else "{}"
    for m in APPEL.finditer(code):
        fin = m.end()
        while code[fin:fin + 1] == "(":
            fin = fermante(code, fin)
        if code[fin:fin + 1] == ";" and code[m.start(1):m.end()] not in ("if", "for", "while"):
            yield m.start(1), fin, ""
    for m in AFFECTATION.finditer(code):
        yield m.start(1), m.end(), ""


def mutations(racine, fichier, hasard):
    """Toutes les fautes possibles dans ce fichier, dans l'ordre."""
    texte = (racine / fichier).read_text(encoding="utf-8")
    for debut, fin, autre in sorted(set(remplacements(texte, hasard))):
        de, a = texte.rfind("\n", 0, debut) + 1, texte.find("\n", fin)
        avant, apres = texte[de:a], texte[de:debut] + autre + texte[fin:a]
        yield Mutation(fichier, texte.count("\n", 0, debut) + 1, " ".join(avant.split()),
                       " ".join(apres.split()), debut, fin, autre)
