"""Second elements of compounds that are named as a class, or without a composition.

Meaning: a lower-case phrase and the symbol of its second element; the first has a row of its own.
Criterion: the name is in use ("zirconium hydrides", "vanadium phosphate") and no row gives its
formula; without a row here the compound would be read as its first element, a metal.
Sources: Nomenclature of Inorganic Chemistry (IUPAC Recommendations 2005) for the names.
Left out: plurals by themselves ("oxides"), and salts of two transition metals that are not made.
"""

from collections.abc import Iterable, Mapping
from typing import Final

from .elements import ALL_NAMES, ANION_NAMES
from .systematic_names import COUNTED_ANIONS, SALTS
from .written_forms import first_of_each

# Elements whose compounds are named in the plural, as a class ("zirconium hydrides").
_FORM_COMPOUNDS: Final = (
    "lithium sodium potassium rubidium cesium caesium beryllium magnesium calcium strontium barium "
    "scandium yttrium lanthanum cerium praseodymium neodymium samarium europium gadolinium terbium "
    "dysprosium holmium erbium thulium ytterbium lutetium thorium uranium neptunium plutonium "
    "titanium zirconium hafnium vanadium niobium tantalum chromium molybdenum tungsten manganese "
    "rhenium iron ruthenium cobalt iridium nickel palladium platinum copper silver "
    "gold zinc cadmium boron aluminum aluminium gallium indium thallium silicon germanium "
    "tin lead bismuth sulfur nitrogen"
).split()
_USUAL_CLASSES: Final = "hydride boride carbide silicide nitride oxide sulfide".split()
_CLASSES: Final = (
    *_USUAL_CLASSES,
    *"sulphide phosphide arsenide selenide telluride fluoride chloride bromide iodide".split(),
)
_FORM_FEW_CLASSES: Final = frozenset(
    "praseodymium neodymium samarium terbium dysprosium holmium erbium thulium ytterbium "
    "lutetium".split()
)
# Second elements of compounds whose full name is a row only where one composition is meant. They
# keep "vanadium phosphate" from being the metal.
_SECOND_ELEMENTS: Final = {
    "phosphate": "P", "phosphates": "P", "fluorophosphate": "P",
    "thiophosphate": "P", "silicate": "Si", "silicates": "Si", "sulfate": "S", "sulfates": "S",
    "carbonate": "C", "carbonates": "C", "nitrate": "N", "borate": "B", "borates": "B",
    "oxynitride": "N", "oxysulfide": "S", "hydroxide": "O", "hydroxides": "O",
    "oxyhydroxide": "O", "borohydride": "H", "titanate": "Ti", "titanates": "Ti", "niobate": "Nb",
    "tantalate": "Ta", "vanadate": "V", "vanadates": "V", "molybdate": "Mo", "tungstate": "W",
    "ferrite": "Fe", "ferrites": "Fe", "manganite": "Mn", "manganites": "Mn",
    "cobaltite": "Co", "nickelate": "Ni", "nickelates": "Ni", "cuprate": "Cu", "cuprates": "Cu",
    "iridate": "Ir", "iridates": "Ir", "ruthenate": "Ru", "ruthenates": "Ru", "stannate": "Sn",
    "zirconate": "Zr", "aluminate": "Al", "aluminates": "Al", "aluminides": "Al",
    "pnictides": "As", "pnictide": "As",
}  # fmt: skip
_FORM_SALTS: Final = (
    "lithium sodium potassium magnesium calcium strontium barium yttrium lanthanum "
    "manganese iron cobalt nickel copper zinc aluminum aluminium bismuth"
).split()
# Metals that form salts of few acids, or are the second element themselves.
_FORM_FEW_SALTS: Final = "titanium zirconium vanadium niobium chromium".split()
_THEIR_ACIDS: Final = frozenset("P Si S C N B O H Al As V Nb Mo W".split())


def _plurals() -> Iterable[tuple[str, str]]:
    """The anion of a class of compounds; the metal has a row of its own, or gets one here."""
    for name in _FORM_COMPOUNDS:
        for anion in _USUAL_CLASSES if name in _FORM_FEW_CLASSES else _CLASSES:
            yield f"{name} {anion}s", ANION_NAMES[anion]
    for anion in _CLASSES:
        yield f"{anion}s of", ANION_NAMES[anion]
    for anion in sorted(COUNTED_ANIONS - ANION_NAMES.keys()):
        symbol = next(ANION_NAMES[a] for a in (*_CLASSES, "antimonide") if anion.endswith(a))
        yield from ((anion + mark, symbol) for mark in ("", ",", ".", ")"))
    for name in (*_FORM_SALTS, *_FORM_FEW_SALTS):
        few = name in _FORM_FEW_SALTS
        for word, element in _SECOND_ELEMENTS.items():
            if f"{name} {word}" not in SALTS and (not few or element in _THEIR_ACIDS):
                yield f"{name} {word}", element
        for oxide in ("oxide", "oxides"):
            yield f"({name} {oxide})", ALL_NAMES[name]
    for name in ("cesium", "caesium", "methylammonium", "formamidinium", "rubidium"):
        for halide in ("halide", "halides"):
            yield f"{name} lead {halide}", "Pb"
            yield f"{name} tin {halide}", "Sn"
    # The anion of a halide perovskite whose cation has no name of an element.
    for halide in ("triiodide", "tri-iodide", "tribromide", "trichloride"):
        yield from ((f"lead {halide}{mark}", "Pb") for mark in ("", ","))
        yield f"tin {halide}", "Sn"


ANION_PLURALS: Final[Mapping[str, str]] = first_of_each(_plurals())
