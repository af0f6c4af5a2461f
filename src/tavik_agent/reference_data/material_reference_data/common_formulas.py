"""Formulas of compounds in common use beyond the gap tables, made by class.

Meaning: a lower-case spelling and the formula. The class of such a compound is left to the rules;
the row makes it the material of a request that names a dopant or an adsorbate first ("Y-doped
BaCeO3"), and finds it in small letters and with subscripts.
Criterion: classes of compounds that are calculated in series. A member need not have been made; a
formula that nobody writes costs a row and does no harm.
Sources: R. D. Shannon, Acta Cryst. A 32, 751 (1976), the usual valences; F. S. Galasso, Structure
and Properties of Inorganic Solids (Pergamon, 1970), the structure classes; T. Graf, C. Felser and
S. S. P. Parkin, Prog. Solid State Chem. 39, 1 (2011), Heusler compounds; M. W. Barsoum, Prog. Solid
State Chem. 28, 201 (2000), MAX phases.
Left out: compounds of two elements without counts, whose lower-case spellings are words or
abbreviations (gap, cote, nite).
"""

from collections.abc import Iterator, Mapping
from itertools import product
from types import MappingProxyType
from typing import Final

from .written_formulas import SUBSTRATE_FORMULAS, WRITTEN_FORMULAS

# Patterns with {} for a position, and the symbols of each position. Many elements before few.
_CLASSES: Final = (
    # Perovskites of trivalent, divalent and monovalent A.
    ("{}{}O3", "La Pr Nd Sm Eu Gd Tb Dy Ho Er Lu Y Bi", "Ti V Cr Mn Fe Co Ni Al Ga Sc"),
    ("{}{}O3", "Ca Sr Ba Pb", "Ti Zr Hf Sn Ce V Cr Mn Fe Co Ni Mo Nb Ru Ir Os Tb"),
    ("{}{}O3", "Li Na K Rb Ag Cs", "Nb Ta V W"), ("{}{}O3", "Cd Mg Zn Eu", "Ti Zr Sn Si Ge"),
    ("{}{}S3", "Ca Sr Ba Zr Hf", "Zr Hf Ti Sn"), ("{}{}Se3", "Ca Sr Ba", "Zr Hf Ti Sn"),
    # Halide perovskites and antiperovskites, vacancy-ordered and double perovskites.
    ("{}{}{}3", "Cs Rb", "Pb Sn Ge Ca Sr Mg Cd Mn", "F Cl Br I"),
    ("CH3NH3{}{}3", "Pb Sn Ge Ba Sr Ca", "Cl Br I"),
    ("{}2{}{}6", "Cs", "Sn Te Ti Zr Hf Pt Pd", "Cl Br I"),
    ("Cs2Ag{}{}6", "Bi In Sb Tl Y Sc Fe Cr", "Cl Br I"),
    ("Cs2Na{}{}6", "Bi In Sb Y Sc La", "Cl Br"),
    ("{}3{}2{}9", "Cs Rb", "Bi Sb", "Cl Br I"), ("{}3O{}", "Li Na", "Cl Br I"),
    # Double perovskites of oxides.
    ("Sr2Fe{}O6", "Mo Re W Os"), ("{}2MgWO6", "Sr Ba Ca"), ("{}2{}MnO6", "La Y Bi", "Ni Co Fe"),
    ("Sr2CrReO6",), ("Ba2YbNbO6",), ("Ba2YRuO6",), ("Sr2MgOsO6",), ("Ba2BiSbO6",),
    # Spinels.
    ("{}{}2O4", "Mg Mn Fe Co Ni Cu Zn Cd Li", "Al Ga In Ti V Cr Mn Fe Co Rh Ni"),
    ("{}{}2S4", "Mg Mn Fe Co Cu Zn Cd", "Cr Ti V In Al Sc"),
    ("{}{}2Se4", "Mg Mn Fe Cu Zn Cd Hg", "Cr In Y Sc"),
    # Layered and ordered oxides: Ruddlesden-Popper, pyrochlores, delafossites, garnets.
    ("{}2{}O4", "La Sr Ba Ca Nd", "Ti Zr Sn Mn Co Ni Cu Ru Ir Rh"),
    ("{}2{}2O7", "La Nd Sm Gd Tb Dy Ho Er Yb Y Pr", "Ti Zr Hf Sn Ir Ru"),
    ("{}3{}2O7", "Sr La Ca", "Ti Ni Ru Ir Mn Fe Zr Hf"),
    ("{}{}O2", "Li Na K Cu Ag", "Al Ga In Sc Y Cr Mn Fe Co Ni Ti V Rh"),
    ("{}2{}O3", "Li Na", "Ti Mn Ru Ir Zr Sn Ni Fe Mo Si"),
    ("{}3{}5O12", "Y Gd Lu Tb Dy Er Tm", "Fe Al Ga"),
    ("{}{}O4", "Y La Bi Ca Sr Ba Pb Zn Cd Gd Lu In Fe Ce", "V W Mo Nb"),
    ("{}{}O3", "Na K", "Cl Br"), ("XeF{}", "2 4 6"),
    ("Li{}PO4", "Fe Mn Co Ni"), ("Na{}PO4", "Fe Mn Co Ni"), ("{}PO4", "Fe Mn Co Ni Al Bi Ce"),
    ("{}2SiO4", "Mg Fe Mn Co Ni Ca Zn Be"), ("{}2SiO5", "Y Lu Gd La Sc Yb"),
    # Battery materials.
    ("Li3{}{}6", "Y In Er Sc Ho", "Cl Br"), ("{}3PS4", "Li Na K"),
    ("{}3SbS4", "Li Na K"), ("Li10{}P2S12", "Ge Sn Si"), ("Li4Ti5O12",),
    ("Li3{}2P3O12", "Ti Fe V Sc"), ("NaZr2P3O12",), ("Li7La3{}2O12", "Zr Ta"),
    ("Li5La3{}2O12", "Ta Nb"), ("LiPON",), ("Na2{}2TeO6", "Ni Zn Co Mg"), ("LiNi{}O", "Mn Co"),
    # Pnictides: 122, 111 and 1111 compounds, Zintl phases, tetradymites and skutterudites.
    ("{}{}2{}2", "Ba Sr Ca Eu K", "Fe Co Ni Mn", "As P"),
    ("{}{}2{}2", "Ba Sr Ca Mg Eu", "Zn Cd Mg", "As P Sb Bi"),
    ("{}{}{}", "Li Na", "Fe Mn Zn Mg Cd Cu", "As P Sb"), ("LaO{}{}", "Fe Co Ni Mn Zn Cu", "As P"),
    ("La{}{}O", "Fe Co Ni Mn Zn", "As P"), ("{}FeAsO", "Ce Pr Nd Sm Gd"), ("{}3Bi", "Na K Li Rb"),
    ("{}{}As2", "Zn Cd", "Si Ge Sn"), ("{}3{}2", "Mg Ca Sr Ba Zn Cd", "N P As Sb Bi"),
    ("{}{}3", "Co Rh Ir", "Sb As P"),
    # Heusler and half-Heusler compounds.
    ("Co2{}{}", "Mn Fe Cr Ti V", "Al Ga In Si Ge Sn"),
    ("Fe2{}{}", "V Mn Cr Ti Co", "Al Ga Si Ge Sn"),
    ("{}2Mn{}", "Ni Cu Pd Au Ru", "Al Ga In Sn Sb"),
    ("Mn2{}{}", "V Co Ni Fe Ru", "Al Ga Si Sn Ge"),
    ("{}{}{}", "Ti Zr Hf Sc Y Lu V Nb", "Ni Co Fe Pd Pt", "Sn Sb Bi"),
    ("{}MnSb", "Ni Co Pt Cu Pd Ir"),
    # Topological, kagome and layered compounds.
    ("{}V3Sb5", "K Rb Cs"), ("{}Ti3Bi5", "Rb Cs"), ("{}{}6Sn6", "Y Gd Tb Dy Ho Er Lu", "Mn V"),
    ("Co3Sn2{}2", "S Se"), ("{}Sn2As2", "Na Li"), ("{}{}2Te4", "Mn Ge Sn Pb", "Bi Sb"),
    ("Mn{}4Te7", "Bi Sb"), ("Fe{}GeTe2", "3 4 5"), ("{}{}3", "Cr V Ti Mo Ru Bi Sb", "Cl Br I"),
    ("{}2{}2Te6", "Cr Mn V In", "Ge Si Sn"), ("{}P{}3", "Mn Fe Co Ni Cd Zn V Sn", "S Se"),
    ("Nb3{}8", "Cl Br I"), ("{}{}{}", "Ti V Cr Fe", "O S", "Cl Br"), ("Ta2Ni{}5", "S Se"),
    ("{}N{}", "Zr Hf Ti", "Cl Br"), ("{}2{}3", "Bi Sb As In Ga", "S Se Te"), ("{}SiS", "Zr Hf"),
    ("{}GeTe", "Zr Hf Ti"), ("{}Si2N4", "Mo W Cr"), ("{}BiTe", "Tl Ag"),
    ("Tl{}{}2", "Bi Sb", "S Se Te"), ("{}{}S2", "Na Ag Cu", "Cr Ti V Bi Sb"),
    ("{}CrSe2", "Na Ag Cu"), ("Cu2{}{}3", "Sn Ge Si", "S Se Te"),
    ("Cu2{}Sn{}4", "Zn Cd Fe Mn Co Ni Ba Sr Mg", "S Se"), ("Cu2Zn{}{}4", "Ge Si Ti", "S Se"),
    # MAX phases and MXenes.
    ("{}2{}C", "Ti V Cr Nb Ta Zr Mo", "Al Ga Ge Si Sn In S"), ("{}2AlN", "Ti Cr V"),
    ("{}3{}C2", "Ti V Nb Zr Ta", "Al Si Ge"), ("{}4AlC3", "Ti V Nb Ta"), ("{}AlB", "Mo Cr Fe Mn"),
    ("{}2C{}2", "Ti V Nb Mo Sc Zr Hf", "O F"), ("{}3C2{}2", "Ti V Zr Cr", "O F"),
    ("{}3C2", "Ti V Nb"), ("{}4C3", "Nb Ta V Ti"), ("{}2N", "Ti Cr V Mo W"),
    ("{}2C", "Ti V Nb Mo Ta Zr Hf Sc Y W Cr"),
    # Hydrides.
    ("{}MgH3", "Li Na K Rb Cs"), ("{}{}H3", "Na K Ca Ba Sr", "Zn Ni Pd Co Fe Ti"),
    ("{}2FeH6", "Mg Ca Sr"), ("{}2NiH4", "Mg Ca"), ("{}BH4", "Li Na K"), ("{}AlH4", "Li Na K"),
    ("Li2{}H4", "Ca Sr Mg"), ("{}{}H", "Li Na K", "Pd Pt Be Mg"), ("LiNaMg2H6",), ("LiNH2",),
    ("{}H{}", "La Y Ce Ca Th Lu Sc Mg Ac Pr Nd", "6 9 10"),
    ("{}H3", "La Ce Lu Sc U Al Gd Pr Nd Er"),
    ("{}H2", "Ti Zr Hf Mg Ca Sr Ba Sc Y La Ce Nb V Er Gd Be Zn Lu Pd Eu"),
    # Intermetallic compounds.
    ("{}3Al", "Ni Ti Fe Zr Co Pt Nb Cr"), ("Al3{}", "Ni Ti Zr Sc Er Y Hf Nb V Li Fe"),
    ("{}Al3", "Ti Zr Nb V Hf"), ("{}Al2", "Zr Y Ce Gd La U Ca"), ("{}Ni5", "La Ce Y Gd"),
    ("{}Co5", "Sm Y Gd La Pr Nd Ce"), ("{}2Co17", "Sm Y Nd Gd"), ("{}2Fe14B", "Nd Pr Dy Ce Y"),
    ("{}3Sn", "Nb Mn Fe Cu Ni V Ti"), ("{}3{}", "Pt Pd", "Fe Co Ni Mn Cu Ti Y Sc Cr"),
    ("{}3Pt", "Fe Co Ni Mn Cr"), ("{}Fe2", "Tb Dy Sm Er Ho Y Zr Hf Ti Gd"),
    ("{}Co2", "Y Gd Zr Er"), ("CeCo{}5", "In Ga"), ("Ce{}In5", "Rh Ir"),
    ("Ce{}2Si2", "Cu Ru Rh Pd"), ("{}B6", "La Ce Sm Eu Ca Yb Sr Ba Pr Nd Gd Y"),
    ("{}B2", "Mg Ti Zr Hf V Nb Ta Cr Mo W Re Os Ru Al Sc Y Mn Fe"),
    ("{}B4", "W Cr Fe Mo Y Gd Mn Er Tb"), ("{}B12", "Zr Y U Lu Yb Sc"),
    ("{}Si2", "Ti V Cr Nb Mo Ta W Fe Co Ni Ba Ca Zr Hf Re U Y Er Gd"),
    ("{}2Si", "Mg Ca Ni Co Ru Fe Sr"), ("{}3Si", "V Cr Fe Ni Cu Ti"),
    ("{}5Si3", "Ti Mo Nb V Zr Mn Ta W"),
    # Compounds of two elements, by valence.
    ("{}O2", "Ti Zr Hf V Nb Ta Cr Mo W Mn Re Ru Os Rh Ir Pd Pt Sn Pb Ge Ce Pr Tb Th U "
     "Np Pu Te Se Si"),
    ("{}2O3", "Sc Y La Ce Pr Nd Sm Eu Gd Tb Dy Ho Er Tm Yb Lu Ti V Cr Mn Fe Co Rh "
     "Al Ga In Tl As Sb Bi B"),
    ("{}3O4", "Mn Fe Co Pb Sn Pt"), ("{}2O5", "V Nb Ta As Sb P"), ("{}O3", "Cr Mo W Re U"),
    ("{}{}2", "Ti Zr Hf V Nb Ta Cr Mo W Mn Fe Co Ni Ru Os Rh Ir Pd Pt Re Sn Ge", "S Se Te"),
    ("{}{}3", "Ti Zr Hf Nb Ta La Ce Gd U Dy Tb Nd", "S Se Te"), ("{}{}5", "Zr Hf", "Te"),
    ("{}2{}3", "Cr Sc Y La Ce Gd Er Lu Rh Ir", "S Se Te"), ("{}4{}8", "Mo Nb", "S Se"),
    ("{}3{}4", "Fe Co Ni Cr V Ti In Sn", "S Se"), ("{}2{}", "Cu Ag Na K Li Rb Tl", "O S Se Te"),
    ("{}{}2", "Mg Ca Sr Ba Zn Cd Hg Pb Sn Ge Mn Fe Co Ni Cu V Cr Ti Pd Pt Eu Yb", "F Cl Br I"),
    ("{}{}3", "Al Ga In Sc Y La Ce Nd Eu Gd Tb Er Lu Fe Mn Co U", "F Cl Br I"),
    ("{}{}4", "Ti Zr Hf Sn Th U Ce", "F Cl Br I"), ("{}F6", "W U Mo"),
    ("{}3N4", "Si Ge Sn Zr Hf C Ti"), ("{}3N2", "Mg Ca Sr Ba Zn Be"), ("{}4N", "Fe Mn Ni Co"),
    ("{}N2", "Mo W Re Pt Os Ti Ca Cr"), ("{}3N", "Fe Cu Li Na Ni"),
    ("{}P2", "Zn Cd Fe Cu Ge Mo W Si"), ("{}2P", "Fe Ni Co Mn Mo Cu"), ("{}3P", "Fe Ni Cu Na Li"),
    ("{}P3", "Ge Sn Sc As Co In Ca"), ("{}As2", "Fe Ru Os Nb Ta Pt Zn Cd"),
    ("{}Sb2", "Fe Nb Pt Ru"), ("{}3C", "Fe Mn Ni Co"), ("{}2C", "Mo W V Nb Ta"),
    ("{}7C3", "Cr Fe Mn"), ("{}C2", "Ca La Y U Si Be Fe"),
)  # fmt: skip


def _formulas() -> Iterator[str]:
    for pattern, *positions in _CLASSES:
        for symbols in product(*(symbols.split() for symbols in positions)):
            yield pattern.format(*symbols)


COMMON_FORMULAS: Final[Mapping[str, str]] = MappingProxyType(
    {
        formula.lower(): formula
        for formula in _formulas()
        if formula.lower() not in WRITTEN_FORMULAS and formula.lower() not in SUBSTRATE_FORMULAS
    }
)
