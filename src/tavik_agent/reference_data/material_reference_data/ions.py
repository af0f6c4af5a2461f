"""Ions as they are written in running text: Fe3+, Ti⁴⁺, Ce3+/Ce4+, Nd3+:YAG.

Meaning: a lower-case phrase and the symbol of the element.
Criterion: the charges that titles and questions name, the main oxidation states above all. The
formula scan ends at the plus sign and would take "Fe3" for a cluster, the material of the request;
so the acronyms drop these symbols with their count, and with them those that begin a mixed crystal.
The phrases here bring the element back: as an ion with its charge, and as a cluster where no plus
stands behind ("Fe3 on graphene"). A symbol with a second meaning ("v5" is a version, "cm3" a
volume, "SN2" a reaction) is a cluster only before such a noun ("V4 clusters").
Sources: R. D. Shannon, Acta Cryst. A 32, 751 (1976).
Left out: ions whose spelling is a molecule or a compound in capitals (CO2, CO3, BI3, YB2, SC2) or
as often a cluster (Cr2, Mo2, Pt2, Pd2, Cu3, Ru3, Ni4, Si4, Ir4, Mo6); they are read as formulas. So
is Yb3+, which stands beside a second dopant ("Yb3+,Er3+"), since one phrase gives one element.
A dropped cluster that is joined to its support ("Fe3/MgO") is not found, nor is an ion before the
colon of a crystal other than a garnet ("Nd3+:YVO4").
"""

from collections.abc import Iterator, Mapping
from itertools import pairwise, product
from types import MappingProxyType
from typing import Final

from .written_forms import first_of_each

# Charges, and the elements that are written with them.
_IONS: Final = {
    2: "Mg Ca Sr Ba Mn Fe Ni Cu Zn Cd Hg Sn Pb Sm Eu",
    3: "Al Sc Ti V Cr Mn Fe Ni Ga In Sb Y La Ce Pr Nd Sm Eu Gd Tb Dy Ho Er Tm Lu U Pu Am Cm",
    4: "Ti V Cr Mn Fe Sn Zr Hf Ru W Ce Pr Tb Th U Np Pu",
    5: "V Nb Ta Mo W Os Sb U Np",
    6: "Cr W U",
}
# The same for ions that are read as formulas; only the superscript hides them.
_AS_OFTEN_CLUSTERS: Final = {
    3: "Co Cu Tl Zr Nb Mo Ru Rh Ir Bi Yb",
    4: "Si Ge Pb Ni Nb Mo Tc Re Os Ir",
    5: "Cr Ru Re Ir",
    6: "Mo Re Os Te",
}
# First pieces of mixed crystals ("La2-xSrxCuO4"), which are no ions one would look for.
FIRST_PIECES: Final = (
    "Mg2 Ca2 Sr2 Ba2 La2 Pr2 Nd2 Sm2 Gd2 Y2 Bi2 Sb2 La3 Ca3 Sr3 Ba3 Mn3 Sr4".split()
)
# Ions (Fe3+, Ti4+), which are no clusters (Fe3, Ti4).
IONS: Final = tuple(
    f"{symbol}{charge}" for charge, symbols in _IONS.items() for symbol in symbols.split()
)
_RAISED: Final = "⁰¹²³⁴⁵⁶"

# Nouns behind a cluster, by the number of its atoms.
_NOUNS: Final = {2: ("dimer", "molecule"), 3: ("trimer",), 4: ("tetramer",), 5: (), 6: ()}
# Elements whose symbol with a count has another meaning: "in2", "u4", "v5", "w6", "y2", "cm3".
_AMBIGUOUS: Final = frozenset("Am Cm In Sn U V W Y".split())

# Activators of luminescent and laser crystals, with the charges written at the colon.
ACTIVATORS: Final = {
    "Ce": "3", "Pr": "3", "Nd": "3", "Eu": "2 3", "Tb": "3", "Ho": "3", "Er": "3", "Tm": "3",
    "Yb": "3", "Mn": "2 4", "Cr": "3", "Ti": "", "Fe": "", "Co": "",
}  # fmt: skip
# What ytterbium passes its energy to; both stand at the colon ("NaYF4:Yb3+,Er3+").
_BESIDE_YTTERBIUM: Final = ("Er", "Tm")
GARNETS: Final = MappingProxyType({"yag": "Y3Al5O12", "luag": "Lu3Al5O12"})
# The crystals that are written at the colon.
CRYSTALS: Final[Mapping[str, str]] = MappingProxyType(
    {
        **{
            formula.lower(): formula
            for formula in (
                "LaBr3 Y2O3 Gd2O3 Y2SiO5 Lu2SiO5 CaF2 BaF2 YVO4 GdVO4 Al2O3 ZnS ZnO CdS LiNbO3 "
                "SrTiO3 BaTiO3 YAlO3 LiYF4 NaYF4 NaGdF4 K2SiF6 MgAl2O4 GaN ZnSe CeO2 Y3Al5O12 "
                "Lu3Al5O12"
            ).split()
        },
        **GARNETS,
        "sapphire": "Al2O3",
    }
)


def _phrases() -> Iterator[tuple[str, str]]:
    """An ion with its charge as an element: fe3+, fe³⁺, fe3+-doped, (fe3+), fe2+/fe3+."""
    charges: dict[str, list[int]] = {}
    for charge, symbols in _IONS.items():
        for symbol in symbols.split():
            charges.setdefault(symbol, []).append(charge)
    for symbol, states in charges.items():
        name = symbol.lower()
        for charge in states:
            ion = f"{name}{charge}+"
            for behind in ("", ",", ":", "-doped", "-"):
                yield ion + behind, symbol
            yield f"({ion})", symbol
            yield f"{name}{_RAISED[charge]}⁺", symbol
        for low, high in pairwise(states):
            yield f"{name}{low}+/{name}{high}+", symbol
            yield f"{name}{high}+/{name}{low}+", symbol
    for charge, symbols in _AS_OFTEN_CLUSTERS.items():
        yield from ((f"{s.lower()}{_RAISED[charge]}⁺", s) for s in symbols.split())
    for piece in FIRST_PIECES:
        yield f"{piece.lower()}+", piece[:-1]


def _at_colons() -> Iterator[tuple[str, str]]:
    """A dopant at the colon of its crystal as an element: yag:ce3+, nd3+:yag, nayf4:yb3+,er3+."""
    for symbol, charges in ACTIVATORS.items():
        for charge in charges.split():
            ion = f"{symbol.lower()}{charge}+"
            if ion[:-1].capitalize() in IONS:
                yield from ((f"{crystal}:{ion}", symbol) for crystal in CRYSTALS)
            yield from ((f"{ion}:{garnet}", symbol) for garnet in GARNETS)
    for symbol, mark in product(_BESIDE_YTTERBIUM, (",", "/")):
        pair = f"yb3+{mark}{symbol.lower()}3+"
        yield pair, symbol
        yield f"{symbol.lower()}3+{mark}yb3+", symbol
        yield from ((f"{crystal}:{pair}", symbol) for crystal in CRYSTALS)


def _clusters() -> Iterator[tuple[str, str]]:
    """A cluster that is spelt like an ion, without the plus, as an element: fe3, v4 clusters."""
    for cluster in dict.fromkeys((*IONS, *FIRST_PIECES)):
        symbol, count = cluster[:-1], int(cluster[-1])
        if symbol in _AMBIGUOUS:
            for noun in ("cluster", *_NOUNS[count]):
                yield f"{cluster.lower()} {noun}", symbol
                yield f"{cluster.lower()} {noun}s", symbol
        else:
            yield from ((f"{cluster.lower()}{mark}", symbol) for mark in ("", ","))


ION_NAMES: Final[Mapping[str, str]] = first_of_each([*_phrases(), *_at_colons(), *_clusters()])
