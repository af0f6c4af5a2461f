"""Names that leave the composition open.

Meaning: a lower-case name of two elements and the formula of their commonest compound.
Criterion: the elements form several compounds that are simulated, one of them far more often. The
rows stand below the formulas that are written out, so that "tantalum nitride Ta3N5" is about Ta3N5.
Sources: CRC Handbook of Chemistry and Physics, 97th edition (2016), for the compounds there are.
Left out: names without a commonest compound (iron oxide, copper chloride, indium selenide).
"""

from collections.abc import Iterator, Mapping
from types import MappingProxyType
from typing import Final

from .elements import ALL_NAMES
from .written_forms import first_of_each

# Alloys of two metals in words; the formula names both.
_ALLOYS: Final = (
    "vanadium-titanium nickel-titanium niobium-titanium titanium-aluminum titanium-aluminium "
    "iron-chromium iron-nickel iron-cobalt iron-aluminum iron-aluminium iron-silicon iron-carbon "
    "cobalt-chromium cobalt-nickel nickel-aluminum nickel-aluminium copper-zinc copper-nickel "
    "copper-gold copper-tin copper-zirconium copper-palladium silver-gold silver-copper "
    "palladium-silver palladium-gold platinum-ruthenium platinum-cobalt platinum-nickel "
    "aluminum-lithium aluminium-lithium aluminum-magnesium aluminium-magnesium aluminum-copper "
    "aluminium-copper aluminum-silicon aluminium-silicon magnesium-zinc tungsten-rhenium "
    "tungsten-tantalum molybdenum-rhenium uranium-molybdenum uranium-zirconium uranium-plutonium "
    "zirconium-niobium lead-bismuth lead-tin silicon-germanium bismuth-antimony"
).split()


def _alloys() -> Iterator[tuple[str, str]]:
    """Both orders of the metals, with a hyphen or an en dash: nickel-titanium."""
    for alloy in _ALLOYS:
        one, two = alloy.split("-")
        for first, second in ((one, two), (two, one)):
            for dash in "-–":
                yield f"{first}{dash}{second}", ALL_NAMES[first] + ALL_NAMES[second]


ALLOY_NAMES: Final[Mapping[str, str]] = first_of_each(_alloys())

OPEN_NAMES: Final[Mapping[str, str]] = MappingProxyType(
    {
        # Oxides.
        "tungsten oxide": "WO3",
        "rhodium oxide": "Rh2O3",
        "cerium oxide": "CeO2",
        # Silicates, whose metal has an ortho and a meta compound.
        "magnesium silicate": "MgSiO3",
        "magnesium silicates": "MgSiO3",
        "calcium silicates": "CaSiO3",
        "iron silicate": "Fe2SiO4",
        "iron silicates": "Fe2SiO4",
        "aluminum silicate": "Al2SiO5",
        "aluminium silicate": "Al2SiO5",
        # Salts whose cation or anion has no name of an element.
        "lithium amide": "LiNH2",
        "lithium imide": "Li2NH",
        "sodium chlorate": "NaClO3",
        "ammonium nitrate": "NH4NO3",
        "ammonium chloride": "NH4Cl",
        "ammonium perchlorate": "NH4ClO4",
        # Nitrides, carbides, pnictides, hydrides.
        "tantalum nitride": "TaN",
        "chromium nitride": "CrN",
        "chromium carbide": "Cr3C2",
        "iron arsenide": "FeAs",
        "zinc phosphide": "Zn3P2",
        "zinc arsenide": "Zn3As2",
        "cadmium arsenide": "Cd3As2",
        "cadmium phosphide": "Cd3P2",
        "yttrium hydride": "YH3",
        # Halides.
        "tin iodide": "SnI2",
        "chromium iodide": "CrI3",
        "manganese fluoride": "MnF2",
        "cobalt fluoride": "CoF2",
        "nickel fluoride": "NiF2",
        # Chalcogenides.
        "germanium sulfide": "GeS",
        "germanium sulphide": "GeS",
        "manganese sulfide": "MnS",
        "manganese sulphide": "MnS",
        "molybdenum sulfide": "MoS2",
        "molybdenum sulphide": "MoS2",
        "gallium selenide": "GaSe",
        "germanium selenide": "GeSe",
        "iron selenide": "FeSe",
        "manganese selenide": "MnSe",
        "tin selenide": "SnSe",
        "gallium telluride": "GaTe",
        "iron telluride": "FeTe",
        "manganese telluride": "MnTe",
    }
)
