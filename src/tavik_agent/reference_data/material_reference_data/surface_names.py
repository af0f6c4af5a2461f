"""Substrates, crystal faces and elements as hosts of dopants and adsorbates.

Meaning: a lower-case phrase and the formula of the solid that a request with adsorbates, dopants or
films is about.
Criterion: the phrase puts the element or compound in the place of the host: a face by its Miller
indices, "on pt", "in si", "gold clusters", "co/mgo(001)". The host of a dopant or adsorbate is the
material; the first formula written is often the guest ("CO on Pt(111)", "P-doped Si"). The phrases
are made by rule from the solids and from the words around a host.
Sources: none needed; the faces are the low-index and step faces in use in surface science.
Left out: element symbols whose phrase is English or notation ("in au", atomic units; "in mg", a
mass; "in ti", "on co"). These rows stand below all compounds, so that a film on a metal ("MoS2 on
Au(111)") is the film.
"""

from collections.abc import Iterator, Mapping
from itertools import product
from types import MappingProxyType
from typing import Final

from .compound_faces import COMPOUND_FACES, FACES
from .ions import ACTIVATORS, CRYSTALS, GARNETS
from .written_forms import before_comma, first_of_each

# Names of the usual substrates and supports. They stand below every other solid: in "GaN on
# sapphire" or "Pd on alumina" the first-named material decides where it has a row.
SUBSTRATE_NAMES: Final[Mapping[str, str]] = MappingProxyType(
    {
        "graphene": "C",
        "quartz": "SiO2",
        "alpha-quartz": "SiO2",
        "α-quartz": "SiO2",
        "sapphire": "Al2O3",
        "fluorspar": "CaF2",
        "silicon dioxide": "SiO2",
        "silicon oxide": "SiO2",
        "silica": "SiO2",
        "alumina": "Al2O3",
        "alpha-alumina": "Al2O3",
        "gamma-alumina": "Al2O3",
        "α-alumina": "Al2O3",
        "γ-alumina": "Al2O3",
        "aluminum oxide": "Al2O3",
        "aluminium oxide": "Al2O3",
        "magnesia": "MgO",
        "magnesium oxide": "MgO",
        "on sto": "SrTiO3",
        "on mgo": "MgO",
        # Hosts and substrates whose formula is a word in lower case.
        "in sic": "SiC",
        "on sic": "SiC",
        "in alas": "AlAs",
        "on alas": "AlAs",
        "in bas": "BAs",
        "in inn": "InN",
        "in coo": "CoO",
        "in alp": "AlP",
        "in pbs": "PbS",
    }
)
# What graphene lies on; the substrate adds its elements, graphene is the material.
_UNDER_GRAPHENE: Final = (
    "hbn h-bn bn cu(111) ni(111) ir(111) pt(111) ru(0001) co(0001) au(111) ag(111) pd(111) rh(111) "
    "al(111) re(0001) cu ni ir pt ru co au ag pd sic sio2 si mos2 ws2 mose2 wse2 wte2 bi2se3 cri3 "
    "gan mgo al2o3 silicon copper nickel gold metal"
).split()

# Faces of metals by structure, those of most surface work first.
_FACES: Final = {
    "fcc": "111 100 110 001 211 311 331 210 553",
    "bcc": "110 100 001 111 211 112 310",
    "hcp": "0001 10-10 11-20 10-11 10-12 001",
}
_METALS: Final = {
    "fcc": "Pt Pd Cu Ag Au Ni Rh Ir Al Pb Co",
    "bcc": "Fe W Mo Ta Nb V Cr Li Na",
    "hcp": "Ru Co Re Os Ti Zr Mg Zn Be Gd Tc",
}
_SELDOM: Final = frozenset("Pb Ta Nb V Cr Li Na Re Os Zr Zn Be Gd Tc".split())
_REACTIVE_METALS: Final = "Pt Pd Cu Ag Au Ni Rh Ir Ru Fe Co".split()
_SEMICONDUCTOR_FACES: Final = {"Si": "001 100 110 111", "Ge": "001 100 110 111"}
_ADSORBATES: Final = "h h2 o o2 n2 co co2 no oh h2o nh3 ch4".split()
_MOLECULES: Final = "h2 o2 co co2 no h2o nh3 ch4".split()
# Oxides and layers that molecules are put on without naming the face.
_SUPPORTS: Final = (
    "TiO2 CeO2 MgO Al2O3 ZnO Fe2O3 Fe3O4 SiO2 In2O3 SnO2 NiO Co3O4 ZrO2 MoS2 SrTiO3 Cu2O CuO WO3"
).split()

# Those on which single atoms are put, and those whose usual face is written as well.
_UNDER_ATOMS: Final = ("TiO2", "CeO2", "MgO")
_WITH_FACE: Final = (*_UNDER_ATOMS, "ZnO", "Fe3O4", "NiO")

# Dopants that are written before silicon and germanium.
_DOPANTS: Final = "b p as sb n al ga in c er mn fe cu au s se te o h li mg".split()
_DOPANTS_OF_GE: Final = "b p as sb ga sn mn li n".split()
_BEHIND_DIAMOND: Final = "from with using and at under by on is are has gives via within".split()
# Hosts by symbol and by name, with the words before which they are hosts.
_HOSTS_IN: Final = "Pd Pt Cu Ag Ni Al Fe W Cr Nb Ta Zr Si Ge Mo Rh Ir".split()
_HOSTS_ON: Final = "Pt Pd Cu Ag Au Ni Rh Ru Ir Fe W Si Ge Mo Al".split()
_METAL_NAMES: Final = {
    "tungsten": "W", "palladium": "Pd", "platinum": "Pt", "copper": "Cu", "nickel": "Ni",
    "silver": "Ag", "gold": "Au", "iron": "Fe", "rhodium": "Rh", "ruthenium": "Ru",
    "iridium": "Ir", "aluminium": "Al", "aluminum": "Al", "titanium": "Ti", "zirconium": "Zr",
    "niobium": "Nb", "vanadium": "V", "tantalum": "Ta", "magnesium": "Mg", "molybdenum": "Mo",
    "cobalt": "Co", "chromium": "Cr", "rhenium": "Re", "beryllium": "Be", "osmium": "Os",
    "hafnium": "Hf",
}  # fmt: skip
_HOST_NAMES: Final = {"silicon": "Si", "germanium": "Ge", **_METAL_NAMES}
# Nouns behind a symbol or a name, and behind a name alone.
_BEHIND_SYMBOLS: Final = (
    "surface surfaces slab slabs cluster clusters nanoparticle nanoparticles substrate".split()
)
_BEHIND_NAMES: Final = (
    *_BEHIND_SYMBOLS,
    *"electrode electrodes film films nanocluster nanoclusters catalyst".split(),
)
_SURFACE_SYMBOLS: Final = "Pt Pd Cu Ag Au Ni Rh Ir Ru Fe W Mo Si Ge Al Ti Mg Zn Nb Ta Cr".split()
_IN_STRUCTURES: Final = {
    "bcc": "Fe W Mo Nb Ta V Cr", "fcc": "Ni Cu Al Pd Pt Ag Au", "hcp": "Ti Zr Mg",
}  # fmt: skip
# An oxide whose name leaves its composition open is named by its elements alone.
_OPEN_OXIDES: Final = {
    "copper": "CuO", "iron": "FeO", "titanium": "TiO", "niobium": "NbO", "vanadium": "VO",
    "manganese": "MnO", "cobalt": "CoO",
}  # fmt: skip


def _under_graphene() -> Iterator[tuple[str, str]]:
    """Graphene and what it lies on, around a slash: graphene/ni(111)."""
    for substrate in _UNDER_GRAPHENE:
        yield f"graphene/{substrate}", "C"
        yield f"{substrate}/graphene", "C"


def _styles(solid: str, indices: str, *, rare: bool) -> Iterator[str]:
    """pt(111), pt (111); unless the face is rare, also pt{111}, pt(1 1 1), pt (1 1 1)."""
    name = solid.lower()
    yield f"{name}({indices})"
    yield f"{name} ({indices})"
    if "-" not in indices and not rare:
        apart = " ".join(indices)
        yield f"{name}{{{indices}}}"
        yield f"{name}({apart})"
        yield f"{name} ({apart})"


def _faces(faces: Mapping[str, str]) -> Iterator[tuple[str, str]]:
    """Solids with their faces, the usual ones in every style."""
    for solid, indices in faces.items():
        for number, face in enumerate(indices.split()):
            for phrase in _styles(solid, face, rare=number > (0 if solid in _SELDOM else 3)):
                yield phrase, solid


def _overlayers() -> Iterator[tuple[str, str]]:
    """Metals on silicon, magnetic metals on others: pb/si(111), co/cu(111)."""
    for metal in "pb in ag au bi sn tl ga al sb".split():
        yield f"{metal}/si(111)", "Si"
    for surface in "Cu(111) Cu(001) Ag(111) Au(111) Pt(111) Ir(111) W(110)".split():
        for metal in ("fe", "co", "mn"):
            yield f"{metal}/{surface.lower()}", surface.partition("(")[0]


def _adsorbed(faces: Mapping[str, str]) -> Iterator[tuple[str, str]]:
    """A molecule over the first of the faces: co/pt(111)."""
    for solid, indices in faces.items():
        for adsorbate in _ADSORBATES:
            yield f"{adsorbate}/{solid.lower()}({indices.split()[0]})", solid


def _wet_supports() -> Iterator[tuple[str, str]]:
    """Molecules, metals and single atoms over an oxide or its usual face: co/tio2(110)."""
    metals = [*map(str.lower, _REACTIVE_METALS)]
    atoms = [metal + "1" for metal in metals]
    for solid in _SUPPORTS:
        name = solid.lower()
        for guest in (*_MOLECULES, *metals, *(atoms if solid in _UNDER_ATOMS else ())):
            yield f"{guest}/{name}", solid
            if solid in _WITH_FACE:
                yield f"{guest}/{name}({FACES[solid].split()[0]})", solid


def _diamond() -> Iterator[str]:
    """Diamond as a host. "In diamond" and "of diamond" alone also stand before "structure"."""
    for centre in ("center", "centre", "(nv", "(siv"):
        yield f"{centre}) in diamond"
    for before in ("in", "of", "for", "doped"):
        yield from (f"{before} diamond{mark}" for mark in (",", ".", "?", ":", ")"))
        yield from (f"{before} diamond {word}" for word in _BEHIND_DIAMOND)
    yield from (f"{carrier}-doped diamond" for carrier in ("hole", "electron", "p", "phosphorus"))
    for noun in ("film", "films", "slab", "nanoparticles", "nanocrystals", "nanowires", "surfaces"):
        yield f"diamond {noun}"
    yield from ("nanodiamond", "nanodiamonds", "cvd diamond")
    for vacancy in ("nv", "nv-", "nv−", "siv", "siv-", "gev", "snv"):
        for centre in ("center", "centre", "centers", "centres"):
            yield from before_comma(f"{vacancy} {centre}")


def _hosts() -> Iterator[tuple[str, str]]:
    """Silicon, germanium and diamond as hosts: in si, b-doped silicon, of ge."""
    for symbol, name in (("Si", "silicon"), ("Ge", "germanium")):
        for host in (symbol.lower(), name):
            for before in ("bulk", "crystalline", "amorphous", "doped", "in", "on"):
                yield f"{before} {host}", symbol
            for dopant in _DOPANTS if symbol == "Si" else _DOPANTS_OF_GE:
                yield f"{dopant}-doped {host}", symbol
        yield f"of {symbol.lower()}", symbol
    yield "silicon wafer", "Si"
    yield from ((phrase, "C") for phrase in _diamond())


def _colon_hosts() -> Iterator[tuple[str, str]]:
    """Luminescent and laser crystals as they are written behind their dopant: ce:labr3."""
    for name, formula in CRYSTALS.items():
        yield from ((f"{dopant.lower()}:{name}", formula) for dopant in ACTIVATORS)
    for (garnet, formula), (dopant, charges) in product(GARNETS.items(), ACTIVATORS.items()):
        name = dopant.lower()
        yield f"{garnet}:{name}", formula
        for charge in charges.split():
            yield f"{garnet}:{name}{charge}+", formula
            yield f"{name}{charge}+:{garnet}", formula


def _metal_hosts() -> Iterator[tuple[str, str]]:
    """Elements as surfaces, particles and hosts: pt slab, gold clusters, on cu, in bcc fe."""
    for name, symbol in _HOST_NAMES.items():
        for noun in _BEHIND_NAMES:
            yield f"{name} {noun}", symbol
    for symbol in _SURFACE_SYMBOLS:
        for noun in _BEHIND_SYMBOLS:
            yield f"{symbol.lower()} {noun}", symbol
    for symbol in _HOSTS_ON:
        yield f"on {symbol.lower()}", symbol
    for symbol in _HOSTS_IN:
        yield f"in {symbol.lower()}", symbol
        yield f"doped {symbol.lower()}", symbol
    for structure, symbols in _IN_STRUCTURES.items():
        for symbol in symbols.split():
            yield f"in {structure} {symbol.lower()}", symbol
    for name, formula in _OPEN_OXIDES.items():
        for before in ("on", "in"):
            yield f"{before} {name} oxide", formula
    for name, symbol in _METAL_NAMES.items():
        structures = (f"in {s}" for s, metals in _METALS.items() if symbol in metals.split())
        for before in ("in", "on", "over", *structures):
            yield f"{before} {name}", symbol
    # Phases at high temperature or pressure.
    for phase in ("alpha-iron", "fcc iron", "hcp iron"):
        yield f"in {phase}", "Fe"
    yield "in bcc titanium", "Ti"
    yield "in bcc zirconium", "Zr"


# Graphene on what is named behind it.
UNDER_GRAPHENE: Final[Mapping[str, str]] = first_of_each(_under_graphene())


def _metal_faces() -> Iterator[tuple[str, str]]:
    for structure, metals in _METALS.items():
        for metal in metals.split():
            yield from _faces({metal: _FACES[structure]})
            if metal in _REACTIVE_METALS:
                yield from _adsorbed({metal: _FACES[structure]})


# Oxides and crystals behind a slash or a colon.
ON_OXIDES: Final[Mapping[str, str]] = first_of_each(
    [*_wet_supports(), *_colon_hosts(), *_overlayers()]
)


# Faces of compounds, semiconductor hosts, faces of metals, metal hosts.
SURFACE_NAMES: Final[Mapping[str, str]] = first_of_each(
    [
        *COMPOUND_FACES.items(),
        *_hosts(),
        *_faces(_SEMICONDUCTOR_FACES),
        *_metal_faces(),
        *_metal_hosts(),
    ]
)
