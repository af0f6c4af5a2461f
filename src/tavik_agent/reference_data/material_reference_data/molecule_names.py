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

# Words that show water to be the substance of a calculation.
_BEHIND_WATER: Final = (
    "dimer dimers trimer trimers tetramer hexamer hexamers cluster clusters layer layers monolayer "
    "bilayer film adlayer adsorption adsorbed uptake dissociation interface "
    "interfaces diffusion on at confined structure structures orientation"
).split()
_BEFORE_WATER: Final = "adsorbed explicit bulk ambient supercritical interfacial".split()

# Molecules, below every solid.
MOLECULE_NAMES: Final[Mapping[str, str]] = MappingProxyType(
    {
        # Molecules come last of all: on or in a solid they are the adsorbate, and a solid named
        # above decides. They still outrank a solid that only its written formula names, so the bare
        # word "water" and bare formulas such as "h2o" have no row; the words that make it a
        # molecule do.
        "water molecule": "H2O",
        "water molecules": "H2O",
        "water vapor": "H2O",
        "water vapour": "H2O",
        "liquid water": "H2O",
        "gas-phase water": "H2O",
        "isolated water": "H2O",
        "heavy water": "H2O",
        **dict.fromkeys(
            ("ice ih", "hexagonal ice", "cubic ice", "amorphous ice", "ice vii"), "H2O"
        ),
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
        "ethylene carbonate": "C3H4O3",
        "propylene carbonate": "C4H6O3",
        "dimethyl carbonate": "C3H6O3",
        "ethylene glycol": "C2H6O2",
        "ethylene": "C2H4",
        "ethene": "C2H4",
        "acetylene": "C2H2",
        "benzene": "C6H6",
        "toluene": "C7H8",
        "methanol": "CH3OH",
        "ethanol": "C2H5OH",
        "formaldehyde": "CH2O",
        "sulfuric acid": "H2SO4",
        "nitric acid": "HNO3",
        "formic acid": "HCOOH",
        "acetic acid": "CH3COOH",
        "glycine": "C2H5NO2",
        "pyridine": "C5H5N",
        "aniline": "C6H7N",
        "phenol": "C6H6O",
        "pyrrole": "C4H5N",
        "furan": "C4H4O",
        "thiophene": "C4H4S",
        "acetone": "C3H6O",
        "urea": "CH4N2O",
        "caffeine": "C8H10N4O2",
        "cyclohexane": "C6H12",
        "butane": "C4H10",
        "propene": "C3H6",
        "propylene": "C3H6",
        "acetonitrile": "C2H3N",
        "chloroform": "CHCl3",
        "glucose": "C6H12O6",
        "adenine": "C5H5N5",
        "thymine": "C5H6N2O2",
        "cytosine": "C4H5N3O",
        "guanine": "C5H5N5O",
        "uracil": "C4H4N2O2",
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
        "porphyrin": "C20H14N4",
        "porphyrins": "C20H14N4",
        "phthalocyanine": "C32H18N8",
        "phthalocyanines": "C32H18N8",
        "ferrocene": "FeC10H10",
        "fe(co)5": "FeC5O5",
        "ni(co)4": "NiC4O4",
        "cr(co)6": "CrC6O6",
        "mo(co)6": "MoC6O6",
        # "NO on" (a dropped word, see the acronyms) comes after every solid that has a row.
        "no on": "NO",
        "no adsorbed": "NO",
        **dict.fromkeys((f"no and {gas}" for gas in "co no2 n2o nh3 so2 co2 o2".split()), "NO"),
        # Water with other words; the bare word has no row.
        **dict.fromkeys((f"water {word}" for word in _BEHIND_WATER), "H2O"),
        **dict.fromkeys((f"{word} water" for word in _BEFORE_WATER), "H2O"),
    }
)

# Formulas of molecules that are written with subscripts; in plain form the formula scan reads them.
MOLECULE_FORMULAS: Final[Mapping[str, str]] = MappingProxyType(
    {
        formula.lower(): formula
        for formula in (
            "H2O CO2 NH3 CH4 H2 N2 O2 O3 NO2 N2O SO2 H2S H2O2 C2H2 C2H4 C2H6 C6H6 SF6 CF4 NF3 "
            "SiH4 PH3 CH3OH C60 C70 LiPF6"
        ).split()
    }
)
