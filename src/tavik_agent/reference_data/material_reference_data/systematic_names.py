"""Compound names that a rule makes: counted anions, and salts of two metals.

Meaning: a lower-case name and the formula that it spells out.
Criterion: the name has a counted prefix ("lutetium trihydride", "tantalum pentoxide"), or names an
oxo anion whose compound with that metal has one common composition ("nickel ferrite", "terbium
manganite"). With elements of group 13 and 15 "tri" before a chalcogen counts for two atoms
(antimony trisulfide is Sb2S3), and so do "pent" with group 5 and 15 and "tri" in the oxides of the
rare earths.
Sources: Nomenclature of Inorganic Chemistry (IUPAC Recommendations 2005), stoichiometric names; CRC
Handbook of Chemistry and Physics, 97th edition (2016), for the compositions of the salts.
Left out: metals with several such salts (magnesium silicate stands with the open names; barium and
strontium ferrite, lanthanum vanadate), counts that no compound has.
A row here stands below the same name in another file.
"""

from collections.abc import Iterator, Mapping
from typing import Final

from .elements import ALL_NAMES, ANION_NAMES
from .written_forms import first_of_each

_RARE_EARTHS: Final = (
    "scandium yttrium lanthanum cerium praseodymium neodymium samarium europium gadolinium terbium "
    "dysprosium holmium erbium thulium ytterbium lutetium"
)
_3D: Final = "titanium vanadium chromium manganese iron cobalt nickel copper"
# Elements whose trioxide has three oxygen atoms.
_HEXAVALENT: Final = "chromium molybdenum tungsten rhenium uranium tellurium selenium"
_EARLY: Final = "titanium zirconium hafnium vanadium niobium tantalum chromium molybdenum tungsten"
_SULFIDES: Final = "gallium indium germanium tin lead calcium"
_CHALCOGENIDES: Final = ("sulfide", "sulphide", "selenide", "telluride")
_HALIDES: Final = ("fluoride", "chloride", "bromide", "iodide")
_METALS: Final = (
    "titanium zirconium hafnium vanadium niobium tantalum chromium molybdenum tungsten manganese "
    "rhenium iron ruthenium osmium cobalt rhodium iridium nickel palladium platinum copper"
)
_DIVALENT_ONLY: Final = "beryllium magnesium calcium strontium barium zinc cadmium mercury"
_BEYOND_TWO: Final = "aluminum aluminium gallium indium tin lead silicon germanium"
_MAIN_GROUP: Final = f"{_DIVALENT_ONLY} {_BEYOND_TWO}"
_GROUP_15: Final = "arsenic antimony bismuth"
_ACTINIDES: Final = "thorium uranium neptunium plutonium"

# Anions, the counts that stand before them, and the elements that form such compounds.
_COUNTED: Final = (
    ("hydride", "di", f"{_RARE_EARTHS} {_EARLY} {_ACTINIDES} magnesium calcium"),
    ("hydride", "tri", f"{_RARE_EARTHS} {_ACTINIDES} aluminum"),
    ("hydride", "hexa ennea deca", "lanthanum cerium yttrium calcium thorium magnesium lutetium"),
    ("boride", "di", f"{_EARLY} manganese rhenium ruthenium osmium iron magnesium aluminum yttrium "
     "uranium"),
    ("boride", "mono", "vanadium chromium manganese iron cobalt nickel tungsten"),
    ("boride", "tetra", "chromium manganese iron tungsten"),
    ("boride", "hexa dodeca", f"{_RARE_EARTHS} zirconium calcium strontium barium uranium"),
    ("carbide", "mono di", f"{_EARLY} yttrium lanthanum calcium {_ACTINIDES}"),
    ("nitride", "mono di", f"{_EARLY} rhenium osmium platinum gadolinium uranium plutonium"),
    ("silicide", "di", f"{_METALS} yttrium erbium gadolinium calcium barium uranium"),
    ("silicide", "mono", "chromium manganese iron cobalt nickel rhodium iridium platinum calcium"),
    ("phosphide", "mono di", f"{_METALS} zinc tin germanium"),
    ("phosphide", "tri", "cobalt nickel rhodium iridium copper tin"),
    ("arsenide", "mono di", f"{_EARLY} iron cobalt nickel platinum zinc cadmium"),
    ("antimonide", "mono di", "iron cobalt nickel niobium chromium"),
    ("antimonide", "tri", "cobalt rhodium iridium"),
    ("oxide", "mono", f"{_METALS} {_DIVALENT_ONLY} {_BEYOND_TWO} {_GROUP_15} {_ACTINIDES}"),
    ("oxide", "di", f"{_METALS} {_ACTINIDES} tin lead silicon germanium antimony bismuth cerium "
     "praseodymium terbium tellurium selenium magnesium calcium strontium barium zinc cadmium "
     "mercury"),
    ("oxide", "tri", f"{_HEXAVALENT} {_GROUP_15} aluminum aluminium gallium indium cerium "
     "praseodymium terbium boron yttrium lanthanum"),
    *((anion, "di", f"{_METALS} bismuth germanium tin lead uranium lanthanum samarium gadolinium")
      for anion in _CHALCOGENIDES),
    *((anion, "tri", f"titanium zirconium hafnium niobium tantalum molybdenum tungsten gallium "
       f"indium {_GROUP_15} uranium") for anion in _CHALCOGENIDES),
    *((anion, "mono", f"{_SULFIDES} {_3D} uranium samarium europium") for anion in
      _CHALCOGENIDES),
    ("telluride", "tri", "cerium lanthanum neodymium samarium gadolinium terbium "
     "dysprosium holmium chromium"),
    ("telluride", "penta", "zirconium hafnium"),
    *((anion, "di", f"{_3D} gallium indium tin lead silicon germanium molybdenum europium "
       "palladium platinum") for anion in _HALIDES),
    *((anion, "tri", "titanium vanadium chromium iron aluminum aluminium gallium indium "
       f"{_GROUP_15} ruthenium molybdenum niobium") for anion in _HALIDES),
    ("fluoride", "tri", "manganese cobalt nickel palladium"),
    *((anion, "di", _DIVALENT_ONLY) for anion in _HALIDES),
    *((anion, "tri", f"{_RARE_EARTHS} {_ACTINIDES} boron") for anion in _HALIDES),
    *((anion, "tetra", f"{_EARLY} {_ACTINIDES} silicon germanium tin") for anion in _HALIDES),
    ("fluoride", "penta hexa", "tungsten molybdenum uranium tantalum niobium arsenic antimony"),
)  # fmt: skip
_COUNTS: Final = {
    "mono": 1, "di": 2, "tri": 3, "tetra": 4, "penta": 5, "hexa": 6, "ennea": 9, "deca": 10,
    "dodeca": 12,
}  # fmt: skip
_CHALCOGENS: Final = ("O", "S", "Se", "Te")
_TWO_OF_THREE: Final = ("B", "Al", "Ga", "In", "As", "Sb", "Bi")
_TRIVALENT_SYMBOLS: Final = frozenset(ALL_NAMES[name] for name in _RARE_EARTHS.split())

# Oxides with the vowel dropped, and the sesqui compounds.
_PENTOXIDES: Final = "vanadium niobium tantalum arsenic antimony phosphorus bismuth protactinium"
_SESQUI: Final = (
    "titanium vanadium chromium manganese iron cobalt rhodium nickel aluminum aluminium gallium "
    "indium bismuth"
)
_TETROXIDES: Final = "ruthenium osmium"

# Salts of two metals: the anion, the formula with "A" for the metal, and the metals.
_TRIVALENT: Final = f"{_RARE_EARTHS} bismuth"
_DIVALENT: Final = "magnesium manganese iron cobalt nickel copper zinc cadmium"
_SALTS: Final = (
    ("titanate", "ATiO3", "calcium strontium barium lead magnesium zinc cadmium iron manganese "
     "nickel cobalt europium"),
    ("zirconate", "AZrO3", "calcium strontium barium lead"),
    ("hafnate", "AHfO3", "calcium strontium barium lead"),
    ("stannate", "ASnO3", "calcium strontium barium lead cadmium"),
    ("cerate", "ACeO3", "strontium barium"),
    ("plumbate", "APbO3", "barium strontium"),
    ("bismuthate", "ABiO3", "barium sodium"),
    ("iridate", "A2IrO4", "strontium barium"),
    ("ruthenate", "ARuO3", "strontium calcium barium"),
    ("niobate", "ANbO3", "lithium sodium potassium silver"),
    ("niobate", "ANb2O6", f"{_DIVALENT} tin"),
    ("tantalate", "ATaO3", "lithium sodium potassium silver"),
    ("ferrite", "AFe2O4", f"{_DIVALENT} calcium"),
    ("ferrite", "AFeO3", _TRIVALENT),
    ("orthoferrite", "AFeO3", _TRIVALENT),
    ("ferrate", "AFeO3", "strontium calcium lanthanum"),
    ("chromite", "ACr2O4", _DIVALENT),
    ("chromite", "ACrO3", _RARE_EARTHS),
    ("orthochromite", "ACrO3", _RARE_EARTHS),
    ("manganite", "AMnO3", f"{_TRIVALENT} calcium strontium barium"),
    ("cobaltite", "ACoO3", f"{_TRIVALENT} strontium"),
    ("cobaltate", "ACoO2", "lithium sodium"),
    ("nickelate", "ANiO3", _TRIVALENT),
    ("cuprate", "A2CuO4", "lanthanum neodymium praseodymium samarium"),
    ("aluminate", "AAlO3", _RARE_EARTHS),
    ("aluminate", "AAl2O4", f"{_DIVALENT} calcium strontium barium"),
    ("aluminate", "AAlO2", "lithium sodium potassium"),
    ("gallate", "AGaO3", _RARE_EARTHS),
    ("gallate", "AGa2O4", "zinc magnesium"),
    ("scandate", "AScO3", _RARE_EARTHS),
    ("vanadate", "AVO3", "strontium calcium"),
    ("vanadate", "AVO4", "yttrium bismuth indium iron gadolinium lutetium"),
    ("orthovanadate", "AVO4", _TRIVALENT),
    ("tungstate", "AWO4", f"{_DIVALENT} calcium strontium barium lead"),
    ("molybdate", "AMoO4", f"{_DIVALENT} calcium strontium barium lead"),
    ("germanate", "AGeO3", "copper manganese"),
    ("silicate", "ASiO4", "zirconium hafnium thorium uranium"),
    ("orthosilicate", "A2SiO4", "magnesium calcium iron manganese cobalt zinc"),
    ("metasilicate", "ASiO3", "magnesium calcium iron"),
    ("phosphate", "APO4", f"{_RARE_EARTHS} aluminum aluminium gallium iron boron"),
    ("phosphate", "A3PO4", "lithium sodium silver"),
    ("borate", "ABO3", _RARE_EARTHS),
    ("carbonate", "ACO3", f"{_DIVALENT} calcium strontium barium lead"),
    ("carbonate", "A2CO3", "lithium sodium potassium"),
    ("sulfate", "ASO4", f"{_DIVALENT} calcium strontium barium lead"),
    ("sulfate", "A2SO4", "lithium sodium potassium"),
    ("sulphate", "ASO4", f"{_DIVALENT} calcium strontium barium lead"),
    ("sulphate", "A2SO4", "lithium sodium potassium"),
    ("nitrate", "ANO3", "lithium sodium potassium silver"),
    ("hydroxide", "AOH", "lithium sodium potassium"),
    ("hydroxide", "AO2H2", f"{_DIVALENT} calcium strontium barium"),
    ("hydroxide", "AO3H3", "aluminum aluminium iron lanthanum"),
    ("borohydride", "ABH4", "lithium sodium potassium"),
    ("alanate", "AAlH4", "lithium sodium potassium"),
)  # fmt: skip


def _formula(symbol: str, anion: str, count: int) -> str:
    """One atom of the element with so many of the anion; see the head for two of three."""
    trivalent = anion == "O" and symbol in _TRIVALENT_SYMBOLS
    if count == 3 and anion in _CHALCOGENS and (symbol in _TWO_OF_THREE or trivalent):
        return f"{symbol}2{anion}3"
    return f"{symbol}{anion}{count if count > 1 else ''}"


def _with_prefix(prefix: str, anion: str) -> str:
    """The prefix and the anion; "mono" and "oxide" share an o."""
    return ("mon" if prefix == "mono" and anion == "oxide" else prefix) + anion


def _counted() -> Iterator[tuple[str, str]]:
    """Elements and counted anions: lutetium trihydride, tantalum pentoxide, iron sesquioxide."""
    for anion, prefixes, elements in _COUNTED:
        for name in elements.split():
            for prefix in prefixes.split():
                formula = _formula(ALL_NAMES[name], ANION_NAMES[anion], _COUNTS[prefix])
                yield f"{name} {_with_prefix(prefix, anion)}", formula
                if anion == "iodide" and prefix in ("di", "tri"):
                    yield f"{name} {prefix}-iodide", formula
    for name in _PENTOXIDES.split():
        yield f"{name} pentoxide", f"{ALL_NAMES[name]}2O5"
    for name in _TETROXIDES.split():
        yield f"{name} tetroxide", f"{ALL_NAMES[name]}O4"
    for name in f"{_RARE_EARTHS} {_SESQUI}".split():
        yield f"{name} sesquioxide", f"{ALL_NAMES[name]}2O3"
        yield f"{name} sesquisulfide", f"{ALL_NAMES[name]}2S3"


def _salts() -> Iterator[tuple[str, str]]:
    """Metals and oxo anions with one common compound: nickel ferrite."""
    for anion, pattern, metals in _SALTS:
        for name in metals.split():
            yield f"{name} {anion}", ALL_NAMES[name] + pattern[1:]


# Anions with their counts, as the second word of a name has them.
COUNTED_ANIONS: Final = frozenset(
    _with_prefix(prefix, anion) for anion, prefixes, _ in _COUNTED for prefix in prefixes.split()
) | {"sesquisulfide", "tri-iodide"}
SALTS: Final[Mapping[str, str]] = first_of_each(_salts())
SYSTEMATIC_NAMES: Final[Mapping[str, str]] = first_of_each(_counted())
