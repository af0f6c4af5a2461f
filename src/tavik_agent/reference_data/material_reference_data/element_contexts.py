"""Phrases in which a word or a symbol can only be an element, and all names of elements together.

Meaning: a lower-case phrase and the symbol of the element that it mentions.
Criterion: the bare word means something else as often (lead, tin, zinc blende), or the symbol is
dropped as notation or a sentence word (see tavik_agent.method_acronyms), or small letters hide it
from the formula scan ("bcc fe"). The phrases are made by rule from the neighbours that such a word
has only as an element; single phrases stand where a rule would also make English ones ("bulk in",
"as atoms", "may lead to").
Sources: Nomenclature of Inorganic Chemistry (IUPAC Recommendations 2005) for oxidation states;
C. Kittel, Introduction to Solid State Physics, 8th edition (2005), for the structures.
Left out: neighbours that are English with the word; bare symbols in small letters that are a word,
a unit or an abbreviation (al, au, ca, cd, co, fe, ga, hf, mg, os, pt, ti ...).
"""

from collections.abc import Iterable, Mapping
from types import MappingProxyType
from typing import Final

from .compound_classes import ANION_PLURALS
from .elements import ALL_NAMES, ANION_NAMES, DOUBLE_MEANING_NAMES, ELEMENT_NAMES, HEAVIEST_NAMES
from .family_formulas import ELEMENTS_OF_FAMILIES
from .ions import ION_NAMES
from .written_forms import (
    alone,
    as_anion,
    as_context,
    as_element_name,
    first_of_each,
    in_forms,
    in_sentences,
)

# Neighbours of a name that is also another word. "{}" is the name.
_AROUND_NAMES: Final = (
    "elemental {}", "{} metal", "{} atom", "{} atoms", "{} ion",
    "{} ions", "{} adatom", "{} adatoms", "{} vacancy", "{} vacancies", "{} interstitial",
    "{} interstitials", "{} doping", "{} dopant", "{} dopants", "{} substituted",
    "{} substitution", "{}-doped", "{}-based", "{}-substituted", "{}-rich", "{} alloy", "{} alloys",
    "{} oxide", "{} oxides", "{}(ii)", "{} (ii)",
)  # fmt: skip
# What titanium nitride, "tin" in small letters, has as neighbours as well.
_NOT_AROUND_TIN: Final = ("metallic {}", "pure {}", "{} cluster", "{} clusters", "{} nanowire")

# Neighbours of a symbol that is dropped as notation: V (volt, groups III-V), K (kelvin), U (Hubbard
# U), I (the pronoun), Tc (critical temperature), and the phrases "in", "be" and their like cannot
# take.
_AROUND_SYMBOLS: Final = (
    "{} metal", "{} atom", "{} atoms", "{} ion", "{} ions", "{} adatom", "{} adatoms",
    "{} dopant", "{} doping", "{} substitution", "{} vacancy", "{} vacancies",
    "{} interstitial", "{} interstitials", "{} impurity", "{} impurities", "{} intercalation",
    "{} adsorption", "{} diffusion", "{} migration", "{} nanoparticles",
)  # fmt: skip
_NOTATION: Final = ("V", "K", "U", "I", "Tc")
# Neighbours that a hyphen joins; they cannot be English even with "in", "as" or "be".
_HYPHENS: Final = (
    "{}-doped", "{}-rich", "{}-poor", "{}-terminated", "{}-substituted", "{}-intercalated",
    "{}-containing", "{}-codoped", "{}-based",
)  # fmt: skip
_DROPPED: Final = (*_NOTATION, "In", "As", "Be")
# Alloys named by two symbols of which one is dropped; both orders make rows.
_ALLOYS: Final = (
    "V Ti;V Cr;V Fe;V Al;V Nb;V W;U Mo;U Zr;U Nb;U Ti;U Pu;K Na;In Sn;In Ga;In Ag;In Sb;Be Cu;"
    "Be Al;Re W;Re Mo;Re Ni;Re Ta;Re Os;Tc Mo;Tc Ru"
)
_UNDER_POTASSIUM: Final = "ag(111) au(111) cu(111) pt(111) al(111) ni(111) cu(100) graphene".split()
# Hosts in which V and U are solutes; "in the" and "in a" would make volts of them.
_SOLUTES: Final = ("V", "U")
_SOLVENTS: Final = "w tungsten fe iron ti titanium cr chromium zr zirconium nb niobium bcc".split()
# Oxides that water is put on: the hydrogen of "TiO2-water".
_WET: Final = (
    "tio2 ceo2 mgo al2o3 zno fe2o3 fe3o4 sio2 wo3 co3o4 nio mos2 zro2 srtio3 bivo4".split()
)

# What graphene is joined with behind or before a slash and is the material then.
_BESIDE_GRAPHENE: Final = (
    "tio2 zno sno2 moo3 wo3 v2o5 mno2 fe2o3 fe3o4 co3o4 nio ceo2 hfo2 in2se3 gase inse sns2 "
    "g-c3n4 phosphorene"
).split()

# Symbols by the structure that people name with them, with a blank or a hyphen between.
_STRUCTURES: Final = {
    "bcc": "Fe Cr W Mo Ta Nb V Li Na K Rb Cs Ba U Ti Zr",
    "fcc": "Cu Al Ni Ag Au Pt Pd Rh Ir Pb Ca Sr Ce Th Co Fe",
    "hcp": "Co Ti Zr Hf Mg Zn Cd Be Sc Y Re Os Ru Tc Gd",
    "bulk": "Fe Cu Al Ni Ag Au Pt Pd Rh Ir Cr W Mo Ta Nb Ti Zr Hf Mg Zn Li Na Pb Bi Sb Si Ge Se "
    "Te Gd Mn V Tc",
}
# Names by the allotropes that Greek letters or words name.
_ALLOTROPES: Final = {
    "iron": "alpha gamma delta epsilon",
    "manganese": "alpha beta gamma delta",
    "titanium": "alpha beta omega",
    "zirconium": "alpha beta omega",
    "tin": "alpha beta",
    "uranium": "alpha beta gamma",
    "plutonium": "alpha beta gamma delta epsilon",
    "cerium": "alpha beta gamma",
    "boron": "alpha beta gamma",
    "cobalt": "alpha epsilon",
    "gallium": "alpha",
    "tantalum": "alpha beta",
    "tungsten": "alpha beta",
}
_GREEK: Final = {
    "alpha": "α", "beta": "β", "gamma": "γ", "delta": "δ", "epsilon": "ε", "omega": "ω",
}  # fmt: skip
# Names with the oxidation states that are written behind them.
_STATES: Final = {
    "iron": "ii iii", "cobalt": "ii iii", "nickel": "ii", "copper": "i ii", "chromium": "ii iii",
    "manganese": "ii iii iv", "vanadium": "iii iv v", "titanium": "iii iv", "cerium": "iii iv",
    "europium": "ii iii", "samarium": "iii", "uranium": "iv vi", "tin": "ii iv",
}  # fmt: skip

_SINGLE: Final[Mapping[str, str]] = MappingProxyType(
    {
        "fcc lead": "Pb",
        "lead surface": "Pb",
        "plumbum": "Pb",
        "white tin": "Sn",
        "grey tin": "Sn",
        "gray tin": "Sn",
        "tetragonal tin": "Sn",
        "body-centred tetragonal tin": "Sn",
        "body-centered tetragonal tin": "Sn",
        "tin sulfide": "Sn",
        "tin sulphide": "Sn",
        "stannum": "Sn",
        "lead film": "Pb",
        "lead films": "Pb",
        "lead nanowire": "Pb",
        "hcp zinc": "Zn",
        "tc, the hcp": "Tc",
        "zinc in": "Zn",
        "zinc and": "Zn",
        "zinc surface": "Zn",
        "silicon-based": "Si",
        "including aluminum": "Al",
        "including aluminium": "Al",
        "fe(ii)": "Fe",
        "fe(iii)": "Fe",
        "u(iv)": "U",
        "u(vi)": "U",
        # Materials and centres whose names hold an element.
        "ysz": "Y",
        "yttria-stabilized": "Y",
        "yttria-stabilised": "Y",
        **dict.fromkeys(("nv center", "nv centre", "nv centers", "nv centres"), "N"),
        **dict.fromkeys(("nv-", "nv−", "nitrogen-vacancy"), "N"),
        "siv-": "Si",
        **{
            f"{symbol.lower()}v {centre}": symbol
            for symbol in ("Si", "Ge", "Sn")
            for centre in ("center", "centre", "centers", "centres")
        },
        # Symbols that are sentence words.
        **dict.fromkeys(("br, i", "br, i)", "br, i),", "br, i).", "br, i):", "br,i)"), "I"),
        **dict.fromkeys(("br and i)", "br, and i)", "(x = i,", "(x=i,", "(x=cl,br,i)"), "I"),
        "k-ion": "K",
        "k+": "K",
        "bulk-k": "K",
        "of re": "Re",
        "relax re": "Re",
        "re metal": "Re",
        "re atoms": "Re",
        "of be": "Be",
        "relax be": "Be",
        "pure be": "Be",
        "be metal": "Be",
        "be atom": "Be",
        "be atoms": "Be",
        "be surface": "Be",
        "of in": "In",
        "bct in": "In",
        "in adlayer": "In",
        "in droplets": "In",
        "as antisite": "As",
        "as2 flux": "As",
        "grey as": "As",
        "gray as": "As",
        "α-u": "U",
        "β-u": "U",
        "γ-u": "U",
        "alpha-u": "U",
        "beta-u": "U",
        "gamma-u": "U",
        "alpha-pu": "Pu",
        "delta-pu": "Pu",
        # Small letters that are no word, unit or abbreviation, nor are their capitals.
        **{
            symbol.lower(): symbol
            for symbol in "Si Ge Cu Ag Zn Ni Mn Nb Zr Rh Ru Li Bi Pb Rb Gd Eu".split()
        },
    }
)


def _contexts() -> Iterable[tuple[str, str]]:
    for name, symbol in DOUBLE_MEANING_NAMES.items():
        yield from ((around.format(name), symbol) for around in _AROUND_NAMES)
        if name != "tin":
            yield from ((around.format(name), symbol) for around in _NOT_AROUND_TIN)
    for symbol in _NOTATION:
        yield from ((around.format(symbol.lower()), symbol) for around in _AROUND_SYMBOLS)
    for symbol in _DROPPED:
        yield from ((around.format(symbol.lower()), symbol) for around in _HYPHENS)
    for symbol in _SOLUTES:
        yield from ((f"{symbol.lower()} in {solvent}", symbol) for solvent in _SOLVENTS)
    for surface in _UNDER_POTASSIUM:
        yield f"k/{surface}", "K"
    for alloy in _ALLOYS.split(";"):
        symbol, partner = alloy.split()
        yield f"{symbol}-{partner}".lower(), symbol
        yield f"{partner}-{symbol}".lower(), symbol
        if symbol == "V":
            yield f"v/{partner}".lower(), symbol
            yield f"{partner}/v".lower(), symbol
    for oxide in _WET:
        yield from ((f"{oxide}{dash}water", "H") for dash in ("-", "–", "/"))
        yield f"water/{oxide}", "H"
    for layer in _BESIDE_GRAPHENE:
        yield f"{layer}/graphene", "C"
        yield f"graphene/{layer}", "C"
    for phrase in ("in water,", "in water.", "in water?", "under water", "and water"):
        yield phrase, "H"
    for symbol in ("Re", "Pa", "Am"):
        yield f"{symbol.lower()}-doped", symbol
    for structure, symbols in _STRUCTURES.items():
        for symbol in symbols.split():
            yield f"{structure} {symbol.lower()}", symbol
            yield f"{structure}-{symbol.lower()}", symbol
    for name, allotropes in _ALLOTROPES.items():
        for word in allotropes.split():
            for prefix in (word, _GREEK[word]):
                yield f"{prefix}-{name}", ALL_NAMES[name]
                yield f"{prefix} {name}", ALL_NAMES[name]
    for name, states in _STATES.items():
        for state in states.split():
            yield f"{name}({state})", ALL_NAMES[name]
            yield f"{name} ({state})", ALL_NAMES[name]
    yield from _SINGLE.items()


CONTEXTS: Final[Mapping[str, str]] = first_of_each(_contexts())

# All names and contexts. Every phrase that a request holds adds its element.
# Order: that of the species, so anions last.
ELEMENT_NAME_ALIASES: Final[Mapping[str, str]] = in_forms(
    (ELEMENT_NAMES, as_element_name),
    (HEAVIEST_NAMES, in_sentences),
    (CONTEXTS, as_context),
    (ION_NAMES, alone),
    (ELEMENTS_OF_FAMILIES, alone),
    (ANION_NAMES, as_anion),
    (ANION_PLURALS, alone),
)
