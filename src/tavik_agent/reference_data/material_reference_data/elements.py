"""The chemical elements: their symbols, and the names by which prose mentions them."""

from collections.abc import Mapping
from types import MappingProxyType
from typing import Final

# Meaning: every symbol that a chemical formula may hold.
# Criterion: the 118 elements named by IUPAC. D and T (isotopes of hydrogen) are no elements and
# would turn abbreviations into formulas; they are left out.
# Source: IUPAC Periodic Table of the Elements, release of 4 May 2022.
# fmt: off
KNOWN_ELEMENT_SYMBOLS: Final[frozenset[str]] = frozenset(
    {
        # Atomic numbers 1 to 20.
        "H", "He", "Li", "Be", "B", "C", "N", "O", "F", "Ne", "Na", "Mg", "Al", "Si", "P", "S",
        "Cl", "Ar", "K", "Ca",
        # Atomic numbers 21 to 38.
        "Sc", "Ti", "V", "Cr", "Mn", "Fe", "Co", "Ni", "Cu", "Zn", "Ga", "Ge", "As", "Se", "Br",
        "Kr", "Rb", "Sr",
        # Atomic numbers 39 to 56.
        "Y", "Zr", "Nb", "Mo", "Tc", "Ru", "Rh", "Pd", "Ag", "Cd", "In", "Sn", "Sb", "Te", "I",
        "Xe", "Cs", "Ba",
        # Atomic numbers 57 to 71.
        "La", "Ce", "Pr", "Nd", "Pm", "Sm", "Eu", "Gd", "Tb", "Dy", "Ho", "Er", "Tm", "Yb", "Lu",
        # Atomic numbers 72 to 88.
        "Hf", "Ta", "W", "Re", "Os", "Ir", "Pt", "Au", "Hg", "Tl", "Pb", "Bi", "Po", "At", "Rn",
        "Fr", "Ra",
        # Atomic numbers 89 to 103.
        "Ac", "Th", "Pa", "U", "Np", "Pu", "Am", "Cm", "Bk", "Cf", "Es", "Fm", "Md", "No", "Lr",
        # Atomic numbers 104 to 118.
        "Rf", "Db", "Sg", "Bh", "Hs", "Mt", "Ds", "Rg", "Cn", "Nh", "Fl", "Mc", "Lv", "Ts", "Og",
    }
)
# fmt: on

# Meaning: a lower-case name and the symbol of its element.
# Criterion: all English names with their variant spellings; the Latin and older names that are
# still written. A name that is an everyday word or part of another name is left to the phrases of
# element_contexts.py.
# Sources: Nomenclature of Inorganic Chemistry (IUPAC Recommendations 2005), tables of the elements;
# IUPAC 2016 for elements 113, 115, 117 and 118.
# Left out: the names of two meanings below, by themselves; Latin names nobody writes (ferrum,
# kalium); deuterium and tritium.
# Order: the order of the rows is the order of the species, electropositive elements first, as in a
# formula.
ELEMENT_NAMES: Final[Mapping[str, str]] = MappingProxyType(
    {
        # Alkali and alkaline-earth metals.
        "francium": "Fr",
        "caesium": "Cs",
        "cesium": "Cs",
        "rubidium": "Rb",
        "potassium": "K",
        "sodium": "Na",
        "lithium": "Li",
        "radium": "Ra",
        "barium": "Ba",
        "strontium": "Sr",
        "calcium": "Ca",
        "magnesium": "Mg",
        "beryllium": "Be",
        # Rare earths.
        "lanthanum": "La",
        "cerium": "Ce",
        "praseodymium": "Pr",
        "neodymium": "Nd",
        "promethium": "Pm",
        "samarium": "Sm",
        "europium": "Eu",
        "gadolinium": "Gd",
        "terbium": "Tb",
        "dysprosium": "Dy",
        "holmium": "Ho",
        "erbium": "Er",
        "thulium": "Tm",
        "ytterbium": "Yb",
        "lutetium": "Lu",
        "lutecium": "Lu",
        "yttrium": "Y",
        "scandium": "Sc",
        # Actinides.
        "actinium": "Ac",
        "thorium": "Th",
        "protactinium": "Pa",
        "uranium": "U",
        "neptunium": "Np",
        "plutonium": "Pu",
        "americium": "Am",
        "curium": "Cm",
        # Transition metals, by group.
        "hafnium": "Hf",
        "zirconium": "Zr",
        "titanium": "Ti",
        "tantalum": "Ta",
        "niobium": "Nb",
        "columbium": "Nb",
        "vanadium": "V",
        "tungsten": "W",
        "wolfram": "W",
        "molybdenum": "Mo",
        "chromium": "Cr",
        "rhenium": "Re",
        "technetium": "Tc",
        "manganese": "Mn",
        "iron": "Fe",
        "ruthenium": "Ru",
        "osmium": "Os",
        "cobalt": "Co",
        "rhodium": "Rh",
        "iridium": "Ir",
        "nickel": "Ni",
        "palladium": "Pd",
        "platinum": "Pt",
        "copper": "Cu",
        "silver": "Ag",
        "gold": "Au",
        "cadmium": "Cd",
        "mercury": "Hg",
        # Metals and metalloids of groups 13 to 16. Tin and lead follow below.
        "aluminium": "Al",
        "aluminum": "Al",
        "gallium": "Ga",
        "indium": "In",
        "thallium": "Tl",
        "bismuth": "Bi",
        "polonium": "Po",
        "germanium": "Ge",
        "silicon": "Si",
        "antimony": "Sb",
        "boron": "B",
        "arsenic": "As",
        "tellurium": "Te",
        # Nonmetals, the more electronegative later.
        "phosphorus": "P",
        "carbon": "C",
        "selenium": "Se",
        "hydrogen": "H",
        "sulfur": "S",
        "sulphur": "S",
        "astatine": "At",
        "iodine": "I",
        "bromine": "Br",
        "nitrogen": "N",
        "chlorine": "Cl",
        "oxygen": "O",
        "fluorine": "F",
        # Rare gases.
        "helium": "He",
        "neon": "Ne",
        "argon": "Ar",
        "krypton": "Kr",
        "xenon": "Xe",
        "radon": "Rn",
    }
)

# Names that are another word as often (to lead, titanium nitride as "tin", zinc blende).
DOUBLE_MEANING_NAMES: Final = {"lead": "Pb", "tin": "Sn", "zinc": "Zn"}
ALL_NAMES: Final[Mapping[str, str]] = MappingProxyType({**ELEMENT_NAMES, **DOUBLE_MEANING_NAMES})

# Names of the list above that get few forms: the elements are hardly ever guests in a solid.
HARDLY_WRITTEN: Final = frozenset(
    "francium radium actinium protactinium neptunium americium curium polonium astatine radon "
    "promethium technetium helium neon argon krypton xenon thulium holmium dysprosium terbium "
    "lutetium praseodymium ytterbium osmium thallium rubidium caesium wolfram plutonium".split()
)

# Meaning: as above, for the elements that are hardly ever calculated.
HEAVIEST_NAMES: Final[Mapping[str, str]] = MappingProxyType(
    {
        "berkelium": "Bk",
        "californium": "Cf",
        "einsteinium": "Es",
        "fermium": "Fm",
        "mendelevium": "Md",
        "nobelium": "No",
        "lawrencium": "Lr",
        "rutherfordium": "Rf",
        "dubnium": "Db",
        "seaborgium": "Sg",
        "bohrium": "Bh",
        "hassium": "Hs",
        "meitnerium": "Mt",
        "darmstadtium": "Ds",
        "roentgenium": "Rg",
        "copernicium": "Cn",
        "nihonium": "Nh",
        "flerovium": "Fl",
        "moscovium": "Mc",
        "livermorium": "Lv",
        "tennessine": "Ts",
        "oganesson": "Og",
    }
)

# Meaning: names of anions. They complete compounds that have no row of their own ("iron oxide"
# holds oxygen).
ANION_NAMES: Final[Mapping[str, str]] = MappingProxyType(
    {
        "hydride": "H",
        "boride": "B",
        "carbide": "C",
        "aluminide": "Al",
        "silicide": "Si",
        "germanide": "Ge",
        "stannide": "Sn",
        "nitride": "N",
        "phosphide": "P",
        "arsenide": "As",
        "antimonide": "Sb",
        "bismuthide": "Bi",
        "oxide": "O",
        "sulfide": "S",
        "sulphide": "S",
        "selenide": "Se",
        "telluride": "Te",
        "disulfide": "S",
        "disulphide": "S",
        "diselenide": "Se",
        "ditelluride": "Te",
        "monoxide": "O",
        "dioxide": "O",
        "trioxide": "O",
        "pentoxide": "O",
        "sesquioxide": "O",
        "trisulfide": "S",
        "trisulphide": "S",
        "triselenide": "Se",
        "tritelluride": "Te",
        "diboride": "B",
        "hexaboride": "B",
        "disilicide": "Si",
        "dihydride": "H",
        "trihydride": "H",
        "mononitride": "N",
        "difluoride": "F",
        "trifluoride": "F",
        "tetrafluoride": "F",
        "dichloride": "Cl",
        "trichloride": "Cl",
        "tetrachloride": "Cl",
        "dibromide": "Br",
        "tribromide": "Br",
        "diiodide": "I",
        "triiodide": "I",
        "fluoride": "F",
        "chloride": "Cl",
        "bromide": "Br",
        "iodide": "I",
    }
)
