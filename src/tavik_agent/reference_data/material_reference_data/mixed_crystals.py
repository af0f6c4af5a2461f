"""Formulas with fractions or variables: mixed crystals, open stoichiometry, layered terminations.

Meaning: a lower-case spelling ("la0.8sr0.2mno3", "li1-xcoo2", "moox") and a formula of plain
symbols and whole counts. The formula scan ends at a decimal point or a bracket and cannot pass a
small letter, so without a row it would read the first piece as the material ("Ba" of Ba(Zr,Y)O3).
Criterion: systems in common use. Each is a pattern in which [A,B] is a site that two elements
share; the rule makes the spellings with the usual fractions, with x, and with round brackets.
The stored formula names the system: the elements of the site side by side, without their share, as
AlGaAs and HgCdTe are written (LaSrMnO3, BaZrYO3). Equal shares that have a name of their own have
the exact formula, given behind =. No share is rounded to a count.
Sources: none needed for spellings.
Left out: sites of three elements and fractions beyond the usual ones; of those that are in daily
use bracketed_formulas.py has the composition. A row there outranks the row here.
"""

from collections.abc import Iterator, Mapping
from functools import cache
from typing import Final

from .subscripts import as_plain_subscripts, counts_apart
from .written_forms import first_of_each

# Oxides first, open shells before closed shells.
_SYSTEMS: Final = (
    # Manganites, cobaltites, ferrites, nickelates, cuprates, vanadates and titanates.
    "[La,Sr]MnO3 [La,Ca]MnO3 [La,Ba]MnO3 [Pr,Ca]MnO3 [Nd,Sr]MnO3 [Pr,Sr]MnO3 [Sm,Sr]MnO3 "
    "[Nd,Ca]MnO3 [La,Sr]CoO3 [La,Sr]FeO3 [La,Ca]FeO3 [La,Sr]CrO3 [La,Sr]NiO3 [Nd,Sr]NiO2 "
    "[La,Sr]NiO2 [La,Sr]TiO3 [La,Sr]VO3 [Sm,Nd]NiO3 [Bi,La]FeO3 [Bi,Sm]FeO3 [Bi,Nd]FeO3 "
    "Bi[Fe,Mn]O3 Bi[Fe,Co]O3 La[Mn,Fe]O3 La[Fe,Co]O3 Sr[Fe,Co]O3 Sr[Ti,Fe]O3 Ba[Co,Fe]O3 "
    "[Ca,Sr]RuO3 [Ca,Sr]VO3 Sr[Ti,Nb]O3 Sr[Ti,Ru]O3 "
    # Battery oxides and phosphates.
    "Li[Ni,Mn]O2 Li[Ni,Co]O2 Li[Co,Ni]O2 Li[Co,Al]O2 Li[Mn,Ni]O2 Li[Fe,Mn]PO4 Li[Mn,Fe]PO4 "
    "Li[Fe,Co]PO4 Na[Fe,Mn]O2 Na[Ni,Mn]O2 Na[Mn,Ni]O2 "
    # Ferroelectrics, ion conductors and dielectrics.
    "Pb[Zr,Ti]O3=Pb2ZrTiO6 Pb[Ti,Zr]O3=Pb2ZrTiO6 [Ba,Sr]TiO3=BaSrTi2O6 [Sr,Ba]TiO3=BaSrTi2O6 "
    "[Ba,Ca]TiO3 [Pb,Sr]TiO3 [Pb,La]TiO3 [Sr,La]TiO3 Ba[Zr,Ti]O3 Ba[Ti,Zr]O3 "
    "[Bi,Na]TiO3=BiNaTi2O6 [Na,Bi]TiO3=NaBiTi2O6 [K,Na]NbO3=KNaNb2O6 [Na,K]NbO3=KNaNb2O6 "
    "[Li,Na]NbO3 K[Ta,Nb]O3 K[Nb,Ta]O3 Ba[Zr,Y]O3 Ba[Ce,Y]O3 Ba[Ce,Zr]O3 Sr[Ce,Y]O3 Ba[Zr,Ce]O3 "
    "[Ba,La]SnO3 [La,Ba]SnO3 [Hf,Zr]O2=HfZrO4 [Zr,Hf]O2=HfZrO4 [Zr,Y]O2 [Ce,Gd]O2 [Ce,Sm]O2 "
    "[Ce,Zr]O2 [Ce,La]O2 [Th,U]O2 [U,Pu]O2 [U,Th]O2 [U,Gd]O2 [U,Ce]O2 "
    # Transparent conductors, magnetic and photocatalytic oxides, minerals.
    "[Ti,Nb]O2 [Ti,V]O2 [Ti,Co]O2 [V,W]O2 [V,Ti]O2 [Ti,Sn]O2 [Ru,Ir]O2 [Zn,Mg]O [Mg,Zn]O "
    "[Zn,Co]O [Zn,Mn]O [Zn,Al]O [Zn,Cd]O [Ni,Li]O [Li,Ni]O [Ni,Mg]O [Mg,Fe]O [Fe,Mg]O [Mg,Ni]O "
    "[Mg,Fe]SiO3 [Mg,Fe]2SiO4 [Fe,Mg]2SiO4 [Mg,Fe]2Si2O6 [In,Ga]2O3 [Ga,In]2O3 [Al,Ga]2O3 "
    "[Ga,Al]2O3 [Fe,Cr]2O3 [Fe,Al]2O3 [In,Sn]2O3 [Ni,Zn]Fe2O4 [Co,Zn]Fe2O4 Co[Fe,Mn]2O4 "
    "[Y,Bi]3Fe5O12 [La,Sr]2CuO4 [La,Ba]2CuO4 [Nd,Ce]2CuO4 [Pr,Ce]2CuO4 [La,Sr]2NiO4 [Sr,La]2IrO4 "
    "[Ca,Sr]2RuO4 "
    # Halide perovskites.
    "CsPb[Br,I]3 CsPb[I,Br]3 CsPb[Br,Cl]3 CsPb[Cl,Br]3 Cs[Pb,Sn]I3 Cs[Sn,Pb]I3 Cs[Pb,Sn]Br3 "
    # Chalcogenides.
    "Cu[In,Ga]Se2 Cu[In,Ga]S2 [Mo,W]S2 [W,Mo]S2 [Mo,W]Se2 [W,Mo]Se2 [Mo,W]Te2 Mo[S,Se]2 "
    "Mo[Se,S]2 W[S,Se]2 W[Se,S]2 Mo[Se,Te]2 Mo[Te,Se]2 W[Te,Se]2 Nb[Se,S]2 Ta[S,Se]2 Ti[Se,S]2 "
    "Hf[S,Se]2 Sn[S,Se]2 Pt[Se,Te]2 Fe[Se,Te] Fe[Te,Se] [Bi,Sb]2Te3 [Sb,Bi]2Te3 "
    "Bi2[Te,Se]3 Bi2[Se,Te]3 Mn[Bi,Sb]2Te4 [Pb,Sn]Te [Sn,Pb]Te [Pb,Sn]Se "
    "Pb[S,Se] Pb[Se,Te] Pb[Te,Se] Sn[Se,Te] Sn[S,Se] [Ge,Sn]Te [Ge,Mn]Te [Sn,Mn]Te [Hg,Cd]Te "
    "[Cd,Hg]Te [Cd,Zn]Te [Zn,Cd]Te [Cd,Zn]Se [Zn,Cd]Se [Cd,Zn]S [Zn,Cd]S [Cd,Mn]Te [Zn,Mn]Te "
    "[Zn,Mn]Se Cd[Se,Te] Zn[S,Se] Zn[Se,Te] Zn[O,S] Ga[S,Se] In2[Se,S]3 Sb2[S,Se]3 [Eu,Gd]O "
    # Nitrides, phosphides, arsenides, antimonides and alloys of group 14.
    "[Al,Ga]As [Ga,Al]As [In,Ga]As [Ga,In]As [Al,In]As [In,Al]As [Ga,Mn]As [In,Mn]As [Al,Ga]N "
    "[Ga,Al]N [In,Ga]N [Ga,In]N [Al,In]N [In,Al]N [Al,Sc]N [Sc,Al]N [Al,B]N [B,Ga]N [Ga,Mn]N "
    "[Ti,Al]N [Al,Ti]N [Cr,Al]N [Ti,Zr]N Ti[C,N] [In,Ga]P [Ga,In]P [Al,Ga]P [In,Ga]Sb [Ga,In]Sb "
    "[Al,Ga]Sb [In,Al]Sb Ga[As,N] Ga[As,P] Ga[As,Sb] Ga[As,Bi] In[As,Sb] In[As,P] In[As,Bi] "
    "[Si,Ge] [Ge,Si] [Ge,Sn] [Si,C] [Bi,Sb] Mg2[Si,Sn] Mg2[Si,Ge] Mg3[Sb,Bi]2 [Ba,K]Fe2As2 "
    "Ba[Fe,Co]2As2 Ba[Fe,Ni]2As2 BaFe2[As,P]2 LaFeAs[O,F] SmFeAs[O,F] NdFeAs[O,F] [Ti,Zr]NiSn "
    "[Zr,Hf]NiSn [Hf,Zr]NiSn [Ti,Hf]NiSn Zr[Co,Fe]Sb Co2[Fe,Mn]Si Co2[Mn,Fe]Si Co2Fe[Al,Si] "
    # Alloys, carbides and borides of metals.
    "[Fe,Co] [Co,Fe] [Fe,Ni] [Ni,Fe] [Fe,Cr] [Fe,Al] [Fe,Si] [Fe,Pt] [Fe,Pd] [Fe,Rh] [Fe,Mn] "
    "[Fe,Ga] [Fe,V] [Co,Pt] [Co,Ni] [Ni,Co] [Ni,Cu] [Cu,Ni] [Ni,Cr] [Ni,Ti] [Ni,Al] [Cu,Au] "
    "[Au,Cu] [Cu,Zn] [Cu,Pd] [Ag,Au] [Ag,Pd] [Pd,Au] [Pt,Ni] [Pt,Co] [Pt,Ru] [Ti,Al] [Ti,Nb] "
    "[Ti,V] [Ti,Mo] [Ti,Zr] [Zr,Nb] [Mo,W] [W,Re] [W,Ta] [V,Cr] [U,Zr] [U,Mo] [Mg,Al] [Mg,Li] "
    "[Al,Cu] [Al,Sc] [Fe,Co]Si [Mn,Fe]Si [Mn,Fe]Ge [Mg,Al]B2 [Hf,Ta]C [Ta,Hf]C Mg[B,C]2"
).split()

# Systems with one element that fills its site only in part.
_PARTLY: Final = {
    "LiCoO2": "Li", "LiNiO2": "Li", "LiMnO2": "Li", "LiMn2O4": "Li", "LiFePO4": "Li",
    "LiMnPO4": "Li", "LiCoPO4": "Li", "LiTiS2": "Li", "LiTiO2": "Li", "LiV2O5": "Li",
    "LiMoS2": "Li", "LiC6": "Li", "LiWO3": "Li", "LiNi2O4": "Li", "LiSi": "Li", "Li2MnO3": "Li",
    "NaCoO2": "Na", "NaMnO2": "Na", "NaFePO4": "Na", "NaFeO2": "Na", "NaNiO2": "Na",
    "NaCrO2": "Na", "NaVO2": "Na", "NaTiS2": "Na", "NaWO3": "Na", "KMnO2": "K", "KCoO2": "K",
    "KWO3": "K", "CsWO3": "Cs", "HWO3": "H", "HMoO3": "H", "MgMnO2": "Mg", "CuTiSe2": "Cu",
    "CuBi2Se3": "Cu", "SrBi2Se3": "Sr", "NbBi2Se3": "Nb", "KFe2Se2": "K", "AgTiS2": "Ag",
    "FeTaS2": "Fe", "FeNbS2": "Fe", "CoNbS2": "Co", "CrNbS2": "Cr", "LiFeAs": "Li",
    "CeFe4Sb12": "Ce", "YbCo4Sb12": "Yb", "BaCo4Sb12": "Ba", "InCo4Sb12": "In", "FeO": "Fe",
    "NiO": "Ni", "CoO": "Co", "MnO": "Mn", "FeS": "Fe", "TiO2": "Ti", "UO2": "U", "CuAlO2": "Cu",
    "Cu2Se": "Cu", "Cu2S": "Cu", "Cu2Te": "Cu", "Ag2Se": "Ag", "Ag2S": "Ag", "FeTe": "Fe",
    "FeSe": "Fe", "PdH": "H", "NbH": "H", "TiH2": "H", "ZrH2": "H", "LaMnO3": "La", "CrTe": "Cr",
}  # fmt: skip

# Compounds with an open count of the last element: MoOx, SiNx, CeO2-x, YBa2Cu3O7-δ.
_OPEN_END: Final = (
    "MoO WO TiO VO NbO TaO CrO MnO FeO CoO NiO CuO ZnO CeO PrO HfO ZrO AlO SiO GaO InO SnO GeO PdO "
    "PtO RuO IrO UO YO MgO AgO SiN TiN NbN CN BN AlN CrN GaN ZrN HfN FeN TaN WN SiC TiC "
    "MoS WS CuS FeS NiS CoS SnS MoSe FeSe CuSe PdH TiH ZrH MgH LaH NbH YH FeO LiPON SiCN SiOC "
    "NiFeO CoFeO NiCoO LiCoO LiMnO NaCoO InGaZnO SrFeO SrCoO LaNiO NdNiO LaMnO CaMnO SrTiO"
).split()
_REDUCED: Final = (
    "CeO2 TiO2 WO3 MoO3 ZrO2 HfO2 UO2 V2O5 SnO2 In2O3 VO2 MnO2 ZnO NiO SrTiO3 BaTiO3 BaSnO3 LaMnO3 "
    "LaCoO3 LaFeO3 LaNiO3 SrFeO3 SrCoO3 SrMnO3 CaMnO3 BaZrO3 BaFeO3 SrRuO3 Ta2O5 Nb2O5 PrO2 Cu2O "
    "TiN NbN TiC Si3N4 YBa2Cu3O7 YBa2Cu3O6 HgBa2CuO4 Bi2Sr2CaCu2O8 La2CuO4 La2NiO4 BiFeO3 LiCoO2 "
    "LiNiO2 LiMn2O4 Cu2S Cu2Se Ag2Se FeSe"
).split()
_TERMINATED: Final = "Ti3C2 Ti2C Nb2C V2C Mo2C Nb4C3 Ta4C3 Ti3CN Zr3C2 Mo2TiC2 Ti4N3 Cr2C".split()

# Alloys of four metals to which aluminium is added, in the orders in which they are written.
_HIGH_ENTROPY: Final = ("CoCrFeNi", "CrFeCoNi")
# Layered cathodes with two thirds of the sodium; manganese makes the charges even.
_SODIUM_CATHODES: Final = (
    ("fe0.5mn0.5o2", "NaFeMnO2"), ("fe1/2mn1/2o2", "NaFeMnO2"),
    ("[fe1/2mn1/2]o2", "NaFeMnO2"), ("ni0.33mn0.67o2", "NaNiMnO2"),
    ("ni1/3mn2/3o2", "NaNiMnO2"), ("[ni1/3mn2/3]o2", "NaNiMnO2"),
)  # fmt: skip

# Alloys of two elements that are written with other shares than equal ones.
_SEMICONDUCTING: Final = ("SiGe", "GeSi", "GeSn", "BiSb", "SiC")
_EQUAL: Final = ("0.5", "0.5")
_USUAL: Final = (
    _EQUAL, ("0.8", "0.2"), ("0.7", "0.3"), ("0.75", "0.25"), ("0.25", "0.75"),
    ("0.3", "0.7"), ("0.2", "0.8"),
)  # fmt: skip
_OF_THREE: Final = (("0.67", "0.33"), ("0.33", "0.67"), ("2/3", "1/3"), ("1/3", "2/3"))
_IN_OXIDES: Final = (
    ("0.9", "0.1"), ("0.6", "0.4"), ("0.67", "0.33"), ("2/3", "1/3"),
    ("0.95", "0.05"),
)  # fmt: skip
# First shares that are also written in brackets before the count of an oxide, and in LaTeX.
_BRACKETED: Final = ("0.5", "0.8", "0.7", "0.9")
_SET_SHARES: Final = ("0.5", "0.8", "0.7")
# What opens and closes a share or a count. One character stands without braces.
_PLAIN, _LATEX, _LOW, _HTML = ("", ""), ("$_{", "}$"), ("_{", "}"), ("<sub>", "</sub>")
# The markups in which a variable share is set, by the kind of the system.
_MARKUPS_OF_METALS: Final = (_PLAIN, _LATEX)
_MARKUPS_OF_OXIDES: Final = (*_MARKUPS_OF_METALS, _HTML)
_MARKUPS: Final = (*_MARKUPS_OF_OXIDES, _LOW)
# The share of an element that fills its site in part, with the markup of the counts beside it.
_SHARES: Final = {
    **dict.fromkeys(("x", "1-x", "1−x", "0.5", "0.75"), _PLAIN), "_x": _LOW, "_{x}": _LOW,
    "_{1-x}": _LOW, "$_x$": _LATEX, "$_{1-x}$": _LATEX, "<sub>1-x</sub>": _HTML,
}  # fmt: skip
_OF_TWO: Final = {
    **dict.fromkeys(("2-x", "2−x", "2-δ", "x", "1.8", "1.9", "1.95"), _PLAIN),
    "$_{2-x}$": _LATEX, "<sub>2-x</sub>": _HTML,
}  # fmt: skip


@cache
def _set(text: str, markup: tuple[str, str]) -> str:
    opened, closed = markup
    if len(text) == 1 and opened.endswith("{"):
        return opened[:-1] + text + closed[1:]
    return opened + text + closed


@cache
def _in_markup(formula: str, markup: tuple[str, str]) -> str:
    if markup == _PLAIN or not formula or formula.isalpha():
        return formula
    return "".join(
        _set(piece, markup) if piece.isdigit() else piece for piece in counts_apart(formula)
    )


@cache
def _pieces(system: str) -> tuple[str, str, str, str, str, str]:
    """Before the site, its two elements, the count behind, the rest; and the stored formula."""
    system, _, _ = system.partition("=")
    before, _, rest = system.partition("[")
    site, _, behind = rest.partition("]")
    one, two = site.split(",")
    end = behind.lstrip("23")
    count = behind.removesuffix(end)
    stored = f"{before}{one}{two}{end}"
    return before.lower(), one.lower(), two.lower(), count, end.lower(), stored


def _is_oxide(end: str) -> bool:
    return end.endswith(("o2", "o3", "o4"))


def _is_of_metals(start: str, end: str, formula: str) -> bool:
    return not start and not end and formula not in _SEMICONDUCTING


def _variable(system: str) -> Iterator[tuple[str, str]]:
    """The spellings of a system with a comma or x: (a,b)2, (a1-xbx)2, a2-xbx, a$_{1-x}$b$_x$."""
    start, a, b, count, end, formula = _pieces(system)
    yield f"{start}({a},{b}){count}{end}", formula
    if count:
        yield f"{start}({a}1-x{b}x){count}{end}", formula
        yield f"{start}({a}x{b}1-x){count}{end}", formula
    rest = f"{count or '1'}-x"
    of_metals, oxide = _is_of_metals(start, end, formula), _is_oxide(end)
    few = _MARKUPS_OF_METALS if of_metals or count else _MARKUPS_OF_OXIDES if oxide else _MARKUPS
    for markup in few:
        before, behind = _in_markup(start, markup), _in_markup(end, markup)
        first, second = _set(rest, markup), _set("x", markup)
        yield f"{before}{a}{first}{b}{second}{behind}", formula
        if markup == _PLAIN or not (oxide or markup == _HTML):
            yield f"{before}{a}{second}{b}{first}{behind}", formula


def _on_site(system: str) -> Iterator[tuple[str, str]]:
    """The spellings of a system with fractions: a0.5b0.5, (a0.5b0.5)2, a$_{0.5}$b$_{0.5}$."""
    start, a, b, count, end, formula = _pieces(system)
    of_metals = _is_of_metals(start, end, formula)
    oxide = _is_oxide(end)
    shares = (_EQUAL,) if of_metals else _USUAL
    settled = system.partition("=")[2] or formula
    before, behind = _in_markup(start, _LATEX), _in_markup(end, _LATEX)
    beyond = _IN_OXIDES if oxide else _OF_THREE if start[:2] == "cs" else ()
    for p, q in (*shares, *beyond):
        stored = settled if p == q else formula
        if not count:
            yield f"{start}{a}{p}{b}{q}{end}", stored
            if p in _SET_SHARES and not of_metals:
                yield f"{before}{a}$_{{{p}}}${b}$_{{{q}}}${behind}", stored
        if count or (oxide and p in _BRACKETED):
            yield f"{start}({a}{p}{b}{q}){count}{end}", stored


def _partly() -> Iterator[tuple[str, str]]:
    for formula, symbol in _PARTLY.items():
        start, end = formula.lower().split(symbol.lower(), maxsplit=1)
        shares = _OF_TWO if end[:1] == "2" else _SHARES
        end = end.lstrip("2")
        for share, markup in shares.items():
            before, behind = _in_markup(start, markup), _in_markup(end, markup)
            if share == "_{x}":
                behind = "".join(f"_{{{p}}}" if p.isdigit() else p for p in counts_apart(end))
            yield f"{before}{symbol.lower()}{share}{behind}", formula


def _open_ended() -> Iterator[tuple[str, str]]:
    for formula in _OPEN_END:
        for end in ("x", "ₓ", "$_x$"):
            yield formula.lower() + end, formula
    for formula in _REDUCED:
        for end in ("-x", "−x", "-δ", "−δ"):
            yield formula.lower() + end, formula
    for formula in _TERMINATED:
        for end in ("tx", "t$_x$", "(oh)2"):
            yield formula.lower() + end, formula
        for characters in as_plain_subscripts(formula.lower())[:1]:
            yield characters + "tₓ", formula
    for metals in _HIGH_ENTROPY:
        for share in ("x", "0.1", "0.3", "0.5"):
            yield f"al{share}{metals.lower()}", f"Al{metals}"
    for metals, formula in _SODIUM_CATHODES:
        for share in ("0.67", "2/3"):
            yield f"na{share}{metals}", formula


# A system of more elements outranks one of fewer, so these stand above the partly filled ones.
MIXED_CRYSTALS: Final[Mapping[str, str]] = first_of_each(
    row for system in _SYSTEMS for row in _on_site(system)
)
# Spellings with a variable or an open share: la1-xsrxmno3, li_xcoo_2, moox, ceo2-δ, ti3c2tx.
OPEN_FORMULAS: Final[Mapping[str, str]] = first_of_each(
    [
        *(row for system in _SYSTEMS for row in _variable(system)),
        *_partly(),
        *_open_ended(),
    ]
)
