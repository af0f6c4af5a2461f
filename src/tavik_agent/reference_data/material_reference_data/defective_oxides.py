"""Oxides with a dopant of lower valence and the oxygen vacancies that come with it.

Meaning: a lower-case spelling ("ce0.9gd0.1o1.95") and a formula of plain symbols and whole counts:
the elements of the shared site side by side, oxygen as in the host (CeGdO2, BaZrYO3).
Criterion: electrolytes and electrodes of fuel cells. Two dopant atoms take one oxygen atom away;
the oxygen is written as that number or as "-δ" and "-x".
Sources: J. A. Kilner and M. Burriel, Annu. Rev. Mater. Res. 44, 365 (2014), the systems.
Left out: sites of three elements other than those of the list.
"""

from collections.abc import Iterator, Mapping
from typing import Final

from .subscripts import counts_apart
from .written_forms import first_of_each

# The host before its site, the element of the site, its dopants, and the count of oxygen.
_FLUORITES: Final = (
    ("", "Ce", "Gd Sm Y La Nd Pr", 2), ("", "Zr", "Y Sc Gd Ca", 2),
    ("Ba", "Zr", "Y", 3), ("Ba", "Ce", "Y Gd", 3), ("Sr", "Ce", "Y Yb", 3), ("Sr", "Zr", "Y", 3),
)  # fmt: skip
_SHARES: Final = (5, 8, 10, 15, 20, 25)
# Perovskites whose oxygen is left open.
_OPEN: Final = (
    "la0.6sr0.4coo3 la0.8sr0.2mno3 la0.7sr0.3mno3 la0.6sr0.4feo3 la0.8sr0.2coo3 la0.5sr0.5coo3 "
    "la1-xsrxcoo3 la1-xsrxmno3 la1-xsrxfeo3 sr1-xlaxtio3 srti1-xfexo3 bazr1-xyxo3 bace1-xyxo3"
).split()
_SITES: Final = {"la": "LaSr", "sr": "SrLa", "srti": "SrTiFe", "bazr": "BaZrY", "bace": "BaCeY"}
_ENDS: Final = ("-δ", "−δ", "-x", "-d")
_GALLATES: Final = (
    "la0.8sr0.2ga0.8mg0.2o2.8", "la0.9sr0.1ga0.8mg0.2o2.85", "la0.9sr0.1ga0.8mg0.2o3-δ",
    "la0.8sr0.2ga0.83mg0.17o2.815", "la0.8sr0.2ga0.8mg0.2o3-δ",
)  # fmt: skip


def _doped() -> Iterator[tuple[str, str]]:
    """ce0.9gd0.1o1.95 and ce0.9gd0.1o2-δ, in plain form and in LaTeX."""
    for start, host, dopants, oxygen in _FLUORITES:
        site = f"{start}{host}".lower()
        for dopant in dopants.split():
            formula, guest = f"{start}{host}{dopant}O{oxygen}", dopant.lower()
            lost = 0.01 if dopant == "Ca" else 0.005
            for share in _SHARES:
                p, q = f"{(100 - share) / 100:g}", f"{share / 100:g}"
                for end in (f"{oxygen - lost * share:g}", f"{oxygen}-δ"):
                    yield f"{site}{p}{guest}{q}o{end}", formula
                    yield f"{site}$_{{{p}}}${guest}$_{{{q}}}$o$_{{{end}}}$", formula


def _open() -> Iterator[tuple[str, str]]:
    for spelling in _OPEN:
        start = spelling[: next(i for i, c in enumerate(spelling) if c.isdigit())]
        last = {"la": spelling[-4:-2], "sr": "ti"}.get(start, "")
        yield from ((spelling + end, f"{_SITES[start]}{last.title()}O3") for end in _ENDS)


def _rows() -> Iterator[tuple[str, str]]:
    yield from _doped()
    for spelling, formula in (*_open(), *((gallate, "LaSrGaMgO3") for gallate in _GALLATES)):
        yield spelling, formula
        if "x" not in spelling and not spelling.endswith(("−δ", "-d")):
            pieces = counts_apart(spelling, "0123456789.-δ")
            yield "".join(f"$_{{{p}}}$" if p[:1].isdigit() else p for p in pieces), formula


DEFECTIVE_OXIDES: Final[Mapping[str, str]] = first_of_each(_rows())
