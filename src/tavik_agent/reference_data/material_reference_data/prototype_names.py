"""Compounds that gave their name to a structure type.

Meaning: a lower-case phrase and the formula of the compound that it names.
Criterion: the name or formula also stands for a structure that other compounds share ("TiN in the
NaCl structure", "CoS2 has the structure of pyrite"), so these rows stand below every compound that
is written out. Of a mineral only phrases that can mean the mineral are rows.
Sources: P. P. Ewald and C. Hermann, Strukturbericht 1913-1928 (1931), for the types.
Left out: names that mean the structure more often than a compound (rutile, fluorite, wurtzite, zinc
blende, perovskite, spinel, garnet, NASICON, argyrodite).
"""

from collections.abc import Mapping
from types import MappingProxyType
from typing import Final

# Minerals whose names are types of structure as often, in phrases that name the mineral.
_TYPES: Final = {
    "halite": "NaCl", "brucite": "MgO2H2", "cotunnite": "PbCl2", "pseudobrookite": "Fe2TiO5",
    "sulvanite": "Cu3VS4", "xenotime": "YPO4",
}  # fmt: skip
_AROUND_MINERALS: Final = ("bulk {}", "{} surface", "{} mineral")

PROTOTYPE_NAMES: Final[Mapping[str, str]] = MappingProxyType(
    {
        # Formulas that are words in lower case have no row of their own; here they need one.
        "tin in the nacl": "TiN",
        "tin in the rocksalt": "TiN",
        "tic in the nacl": "TiC",
        "tan in the nacl": "TaN",
        "coo in the nacl": "CoO",
        "gap in the zns": "GaP",
        "sic in the zns": "SiC",
        # Minerals.
        "of corundum": "Al2O3",
        "bulk corundum": "Al2O3",
        "of cuprite": "Cu2O",
        "bulk cuprite": "Cu2O",
        "of pyrite": "FeS2",
        "bulk pyrite": "FeS2",
        "pyrite surface": "FeS2",
        "pyrite(100)": "FeS2",
        "pyrite (100)": "FeS2",
        # Two that mean the mineral far more often than the structure, by themselves.
        "cinnabar": "HgS",
        "baddeleyite": "ZrO2",
        **{
            around.format(name): formula
            for name, formula in _TYPES.items()
            for around in _AROUND_MINERALS
        },
        # Diamond, in phrases that speak of its properties.
        "phonons of diamond": "C",
        "band structure of diamond": "C",
        "lattice constant of diamond": "C",
        "bulk modulus of diamond": "C",
        "elastic constants of diamond": "C",
        "gap of diamond": "C",
        "dispersion of diamond": "C",
        "conductivity of diamond": "C",
        "density of diamond": "C",
        "energy of diamond": "C",
        "spectrum of diamond": "C",
        "surface of diamond": "C",
        "properties of diamond": "C",
        # Prototypes.
        "sodium chloride": "NaCl",
        "cesium chloride": "CsCl",
        "caesium chloride": "CsCl",
        "nickel arsenide": "NiAs",
        "calcium fluoride": "CaF2",
        "cadmium iodide": "CdI2",
        "nacl": "NaCl",
        "cscl": "CsCl",
        "nias": "NiAs",
        "caf2": "CaF2",
        "cdi2": "CdI2",
        "zns": "ZnS",
    }
)
