"""Faces of compounds, written without a blank before the indices: "CO on CeO2(111)".

Meaning: a lower-case spelling and the formula of the compound.
Criterion: a face of low energy, of growth or of catalysis that is calculated with something on it.
The formula scan passes these by itself; a row puts the compound above the adsorbate that is written
first. Behind a blank ("CeO2 (111)") the row of the formula does that.
Sources: U. Diebold, Surf. Sci. Rep. 48, 53 (2003), TiO2; C. Noguera, Physics and Chemistry at Oxide
Surfaces (Cambridge, 1996); the others are the usual terminations of the structure.
Left out: formulas in lower case that are words (gap, tin, sic); see bracketed_formulas.py.
"""

from collections.abc import Iterator, Mapping
from typing import Final

from .frequent_formulas import FREQUENT_FORMULAS
from .subscripts import as_plain_subscripts
from .written_forms import first_of_each

# The usual face first.
FACES: Final = {
    # Oxides.
    "TiO2": "110 101 001 100", "SrTiO3": "001 100 110 111", "BaTiO3": "001 100",
    "CeO2": "111 110 100", "ZnO": "0001 10-10 000-1", "NiO": "001 100 111 110", "CoO": "001 100",
    "FeO": "111 001", "MnO": "001", "Fe2O3": "0001", "Fe3O4": "001 111", "Co3O4": "110 001",
    "Cr2O3": "0001", "Cu2O": "111", "CuO": "111", "SnO2": "110", "RuO2": "110", "IrO2": "110",
    "MnO2": "110", "WO3": "001", "In2O3": "111 110", "Ga2O3": "100", "ZrO2": "101 111",
    "UO2": "111 110", "Al2O3": "0001", "MgO": "001 100 111 110", "CaO": "001", "SiO2": "0001",
    "LaAlO3": "001", "CaCO3": "10-14 104", "LiCoO2": "104 001", "LiNiO2": "104", "LiFePO4": "010",
    "LiMn2O4": "001 111", "Li2O": "111", "Li2O2": "0001", "Li2CO3": "001", "MgAl2O4": "001 100 111",
    "LaMnO3": "001", "LaFeO3": "001 010", "LaCoO3": "001", "LaNiO3": "001", "SrRuO3": "001",
    "KTaO3": "001 111", "PbTiO3": "001", "BiFeO3": "001 111", "BaZrO3": "001", "SrZrO3": "001",
    "CaTiO3": "001", "LiNbO3": "0001", "BiVO4": "001 010", "V2O5": "001 010", "MoO3": "010",
    "VO2": "110", "PdO": "101 100", "PtO2": "110", "PbO2": "110", "GeO2": "110", "Y2O3": "111",
    "La2O3": "001 0001", "ThO2": "111", "PuO2": "111 110", "HfO2": "111 001", "SrO": "001 100",
    "BaO": "001 100", "CdO": "001", "BeO": "0001", "Mn3O4": "001", "NiFe2O4": "001",
    "CoFe2O4": "001", "Li7La3Zr2O12": "001 100", "RhO2": "110", "Ag2O": "111", "Sc2O3": "111",
    # Halides.
    "CaF2": "111", "NaCl": "001 100", "LiF": "001 100", "KBr": "001 100", "KCl": "001 100",
    "BaF2": "111", "MgF2": "110", "CsPbBr3": "001 100", "CsPbI3": "001", "CH3NH3PbI3": "001 110",
    # Semiconductors, chalcogenides.
    "GaAs": "001 110 100 111", "GaN": "0001 10-10", "InAs": "001 110", "InP": "001 110",
    "GaSb": "001 110", "InSb": "001 110", "AlN": "0001", "CdTe": "001 110 111", "CdSe": "0001",
    "CdS": "0001 10-10", "ZnS": "110 001", "ZnSe": "001 110", "ZnTe": "110", "PbTe": "001 111",
    "PbSe": "001", "PbS": "001", "SnTe": "001 111", "MoS2": "0001", "MoSe2": "0001",
    "WS2": "0001", "WSe2": "0001", "NbSe2": "0001", "Bi2Se3": "0001", "Bi2Te3": "0001",
    "Sb2Te3": "0001", "FeS2": "100", "FeS": "001", "FeSe": "001", "CoS2": "100", "SiC": "0001",
    # Carbides, nitrides, phosphides, alloys.
    "Mo2C": "001 100 101", "WC": "0001", "TiC": "001 100 111", "NbC": "100", "Fe3C": "010",
    "ZrC": "100", "VN": "001", "UN": "001", "Ni2P": "0001", "CoP": "101", "MoP": "001",
    "Si3N4": "0001", "Ni3Al": "111 001", "NiAl": "110 100", "FeAl": "110", "Pt3Ni": "111",
    "Pt3Co": "111", "PtNi": "111", "PtSn": "111", "Pt3Sn": "111", "Cu3Au": "111 100",
    "Cu3Pt": "111", "Co2MnSi": "001", "LaB6": "001", "MgB2": "0001", "TiB2": "0001",
}  # fmt: skip


def _faces() -> Iterator[tuple[str, str]]:
    """A compound with a face and no blank before it: ceo2(111), tio₂(110)."""
    for formula, faces in FACES.items():
        name = formula.lower()
        frequent = formula in FREQUENT_FORMULAS
        for written in (name, *(as_plain_subscripts(name) if frequent else ())):
            yield from ((f"{written}({face})", formula) for face in faces.split())
        first = faces.split()[0]
        if frequent and first.isdigit():
            yield f"{name}{{{first}}}", formula
            yield f"{name}{{{first}}}:", formula
            yield f"{name}({' '.join(first)})", formula


COMPOUND_FACES: Final[Mapping[str, str]] = first_of_each(_faces())
