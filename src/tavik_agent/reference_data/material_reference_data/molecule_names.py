"""Names of molecules.

Meaning: a lower-case name and the formula of the molecule.
Criterion: small molecules of gas-phase, surface and electrochemical work, and metal carbonyls.
Sources: Nomenclature of Organic Chemistry (IUPAC Recommendations 2013); CRC Handbook of Chemistry
and Physics, 97th edition (2016).
Left out: bare everyday words, above all "water" ("water on PbZrO3" is about the oxide).
"""

from collections.abc import Mapping
from types import MappingProxyType
from typing import Final

# Molecules, below every solid.
MOLECULE_NAMES: Final[Mapping[str, str]] = MappingProxyType(
    {
        # Molecules come last of all: on or in a solid they are the adsorbate, and a solid named
        # above decides. They still outrank a solid that only its written formula names, so the bare
        # word "water" and bare formulas such as "h2o" have no row; the words that make it a
        # molecule do.
        "water molecule": "H2O",
        "water molecules": "H2O",
        "water dimer": "H2O",
        "water vapor": "H2O",
        "water vapour": "H2O",
        "liquid water": "H2O",
        "gas-phase water": "H2O",
        "isolated water": "H2O",
        "heavy water": "H2O",
        "ice ih": "H2O",
        "h2o molecule": "H2O",
        "h2o molecules": "H2O",
        "ammonia borane": "NH3BH3",
        "ammonia": "NH3",
        "nh3 molecule": "NH3",
        "carbon monoxide": "CO",
        "co molecule": "CO",
        "carbon dioxide": "CO2",
        "dry ice": "CO2",
        "co2 molecule": "CO2",
        "methane": "CH4",
        "ch4 molecule": "CH4",
        "ethane": "C2H6",
        "propane": "C3H8",
        "ethylene": "C2H4",
        "ethene": "C2H4",
        "acetylene": "C2H2",
        "benzene": "C6H6",
        "toluene": "C7H8",
        "methanol": "CH3OH",
        "ethanol": "C2H5OH",
        "formaldehyde": "CH2O",
        "formic acid": "HCOOH",
        "acetic acid": "CH3COOH",
        "glycine": "C2H5NO2",
        "hydrogen peroxide": "H2O2",
        "hydrogen sulfide": "H2S",
        "hydrogen sulphide": "H2S",
        "hydrogen cyanide": "HCN",
        "hydrogen fluoride": "HF",
        "hydrogen chloride": "HCl",
        "nitric oxide": "NO",
        "no molecule": "NO",
        "nitrous oxide": "N2O",
        "nitrogen dioxide": "NO2",
        "no2 molecule": "NO2",
        "sulfur dioxide": "SO2",
        "sulphur dioxide": "SO2",
        "so2 molecule": "SO2",
        "sulfur hexafluoride": "SF6",
        "sulphur hexafluoride": "SF6",
        "hydrogen molecule": "H2",
        "h2 molecule": "H2",
        "nitrogen molecule": "N2",
        "n2 molecule": "N2",
        "oxygen molecule": "O2",
        "o2 molecule": "O2",
        "dioxygen": "O2",
        "ozone": "O3",
        "carbon dimer": "C2",
        "c2 dimer": "C2",
        "c2 molecule": "C2",
        "silane": "SiH4",
        "diborane": "B2H6",
        "phosphine": "PH3",
        "arsine": "AsH3",
        "hydrazine": "N2H4",
        "ferrocene": "FeC10H10",
        "fe(co)5": "FeC5O5",
        "ni(co)4": "NiC4O4",
        "cr(co)6": "CrC6O6",
        "mo(co)6": "MoC6O6",
        # "water on" and "NO on" (a dropped word, see the acronyms) come after every solid that has
        # a row.
        "no on": "NO",
        "no adsorbed": "NO",
        "water on": "H2O",
        "water adsorption": "H2O",
        "water uptake": "H2O",
        "water adsorbed": "H2O",
        "adsorbed water": "H2O",
        "water adlayer": "H2O",
        "water monolayer": "H2O",
        "water bilayer": "H2O",
        "water film": "H2O",
    }
)
