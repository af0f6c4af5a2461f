"""Ions as they are written in running text: Fe3+, Ti⁴⁺, Ce3+/Ce4+, Nd3+:YAG.

Meaning: a lower-case phrase and the symbol of the element.
Criterion: the charges that an element has in compounds that are calculated. The formula scan ends
at the plus sign and would take "Fe3" for a cluster, the material of the request; so the acronyms
drop these symbols with their count, and the phrases here bring the element back; also where it is a
cluster, with the noun behind it ("mn2 dimer").
Sources: R. D. Shannon, Acta Cryst. A 32, 751 (1976).
Left out: ions whose spelling is a molecule or a compound in capitals (CO2, CO3, BI3, YB2, SC2) or
a well-known cluster (Cr2, Mo2, Pt2, Pd2 and the noble metals); they are read as formulas.
"""

from collections.abc import Iterator, Mapping
from itertools import pairwise
from typing import Final

from .written_forms import first_of_each

# Charges, and the elements that have them.
_IONS: Final = {
    2: "Mg Ca Sr Ba Mn Fe Ni Cu Zn Cd Hg Sn Pb Sm Eu",
    3: "Al Sc Ti V Cr Mn Fe Ni Cu Ga In Tl Sb Y Zr Nb Mo Ru Rh Ir La Ce Pr Nd Sm Eu Gd Tb Dy Ho Er "
    "Tm Yb Lu U Pu Am Cm",
    4: "Si Ge Sn Pb Ti V Cr Mn Fe Ni Zr Hf Nb Mo Tc Ru W Re Os Ir Ce Pr Tb Th U Np Pu",
    5: "V Cr Nb Ta Mo W Re Os Ru Ir Sb U Np",
    6: "Cr Mo W Re Os U Te",
}
# Activators and the crystals that are written around the colon.
_ACTIVATORS: Final = "ce3+ pr3+ nd3+ eu2+ eu3+ tb3+ er3+ yb3+ cr3+ mn4+".split()
_CRYSTALS: Final = "yag luag y2o3 gd2o3 al2o3 caf2 yvo4 k2sif6 nayf4 liyf4 labr3 zno".split()

# Clusters, by the nouns behind them.
_CLUSTERS: Final = {
    "dimer molecule cluster": "Mn2 Fe2 Ni2 Cu2 Zn2 Cd2 Hg2 Sn2 Pb2",
    "trimer molecule cluster": "Mn3 Fe3 Ni3 Cu3 Cr3 V3 Al3 Nb3 Ru3 Rh3 Ir3",
    "tetramer cluster": "Mn4 Fe4 Si4 Ir4",
}
NO_CLUSTERS: Final = tuple(
    f"{symbol}{charge}" for charge, symbols in _IONS.items() for symbol in symbols.split()
)


def _phrases() -> Iterator[tuple[str, str]]:
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
            yield f"{name}{'⁰¹²³⁴⁵⁶'[charge]}⁺", symbol
        for low, high in pairwise(states):
            yield f"{name}{low}+/{name}{high}+", symbol
            yield f"{name}{high}+/{name}{low}+", symbol
    for activator in _ACTIVATORS:
        symbol = activator[:2].capitalize()
        for crystal in _CRYSTALS:
            yield f"{crystal}:{activator}", symbol
        for garnet in _CRYSTALS[:2]:
            yield f"{activator}:{garnet}", symbol
    for nouns, clusters in _CLUSTERS.items():
        for cluster in clusters.split():
            for noun in nouns.split():
                for mark in ("", ",", ":"):
                    yield f"{cluster.lower()} {noun}{mark}", cluster[:-1]


ION_NAMES: Final[Mapping[str, str]] = first_of_each(_phrases())
