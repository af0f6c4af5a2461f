"""The forms in which names and formulas stand in text.

A phrase is found only where blanks or the ends of the text stand on both sides of it. So
"(silicon)" and "Fe$_2$O$_3$," are found only if rows hold them with what touches them. The tables
list each name and formula once, in plain form; the functions of this file make the other forms.

Sources: none needed. Which forms are made was chosen on titles and first sentences of forum threads
and papers; each form costs a row for every phrase, so the rare ones are left out. In capitals and
without subscripts the formula scan reads a formula behind any mark by itself; its forms here serve
small letters, and the rank of a host above what is written before it.
"""

from collections.abc import Callable, Iterable, Mapping
from types import MappingProxyType
from typing import Final

from .elements import HARDLY_WRITTEN

# What a hyphen joins to the name of an element that is a guest. "Based", "rich" and "ion" are not
# here: in "iron-based superconductors" iron alone would make a metal of them.
_JOINED: Final = (
    "-doped", "-codoped", "-terminated", "-substituted", "-decorated", "-intercalated", "-covered",
    "-deficient",
)  # fmt: skip
_JOINED_TO_LIGHT: Final = ("-passivated", "-vacancy", "-induced")
_LIGHT: Final = frozenset(
    "hydrogen boron carbon nitrogen oxygen fluorine sulfur sulphur chlorine silicon".split()
)
_NANO: Final = frozenset("silicon carbon gold silver copper platinum iron nickel zinc".split())
_JOINED_TO_NOUNS: Final = (*_JOINED, "-rich", "-poor", "-containing", "-based")
_USUAL_FACES: Final = frozenset("111 110 100 001 0001 10-10 101 211 010 104".split())
# The dashes that are typed or typeset for a hyphen: non-breaking hyphen, en dash.
_DASHES: Final = ("\u2011", "\u2013")


def alone(phrase: str) -> tuple[str, ...]:
    """The phrase by itself; for rare spellings of which there are many."""
    return (phrase,)


def as_anion(name: str) -> tuple[str, ...]:
    """The name of an anion in every form that the element before it may be found in."""
    return (
        *in_sentences(name), name + ")", name + "),", name + ").", name + "...", name + "'s",
        name + "-based",
    )  # fmt: skip


def as_salt(name: str) -> tuple[str, ...]:
    """A name of two metals; in a form without a row it would be read as the first metal."""
    return (name, name + ",", name + ".", name + ")")


def as_rare_name(name: str) -> tuple[str, ...]:
    """A name as it stands in sentences and in brackets."""
    return (name, name + ",", name + ".", name + ":", name + "?", name + ")", f"({name})")


def before_comma(phrase: str) -> tuple[str, ...]:
    """The phrase before a comma; for phrases that are many and rarely end a sentence."""
    return (phrase, phrase + ",")


def as_context(phrase: str) -> tuple[str, ...]:
    """The phrase before a comma, unless a noun must follow ("v-doped")."""
    return (phrase,) if phrase.endswith(_JOINED_TO_NOUNS) else before_comma(phrase)


def on_oxides(phrase: str) -> tuple[str, ...]:
    """The phrase; below a single atom ("pt1/ceo2") and with a face before a comma, too."""
    return before_comma(phrase) if "1/" in phrase or phrase[-1] == ")" else (phrase,)


def as_open_formula(phrase: str) -> tuple[str, ...]:
    """The phrase; with an open share of an ion that moves in and out before a comma, too."""
    ion = phrase.startswith(("li_", "na_", "li$_x", "na$_x", "lix", "nax"))
    return (phrase, phrase + ",") if ion else (phrase,)


def on_surfaces(phrase: str) -> tuple[str, ...]:
    """The phrase; a host behind "in" or "on" before a comma, a usual face before any mark, too."""
    solid, _, face = phrase.partition("(")
    usual = face[:-1] in _USUAL_FACES and "/" not in phrase
    if phrase.endswith(("doped si", "doped silicon", "doped ge", "doped germanium")):
        return (phrase, phrase + ",", phrase + ":")
    if usual and solid.isalnum() and solid.isascii():
        return (phrase, phrase + ",", phrase + ":", phrase + ".", phrase + "?")
    return before_comma(phrase) if usual or phrase[:3] in ("in ", "on ") else (phrase,)


def in_phrases(phrase: str) -> tuple[str, ...]:
    """The phrase before a comma or full stop."""
    return (phrase, phrase + ",", phrase + ".")


def in_sentences(phrase: str) -> tuple[str, ...]:
    """The phrase before the marks of a sentence."""
    return (phrase, phrase + ",", phrase + ".", phrase + ";", phrase + ":", phrase + "?")


def as_name(name: str) -> tuple[str, ...]:
    """A name as it stands in sentences and brackets, with any dash in it."""
    forms = (
        *in_sentences(name), name + ")", name + ").", "(" + name, f"({name})",
    )  # fmt: skip
    if "-" in name:
        return (*forms, *(name.replace("-", dash) for dash in _DASHES))
    return forms


def as_quoted_name(name: str) -> tuple[str, ...]:
    """A name as above, and in quotation marks."""
    return (*as_name(name), f'"{name}"')


def as_element_name(name: str) -> tuple[str, ...]:
    """The name of an element in sentences and brackets, and with what a hyphen joins to it.

    It is not read behind a bracket that stays open: "(sodium chloride" is about a compound.
    """
    if name in HARDLY_WRITTEN:
        return (*in_sentences(name), name + ")", f"({name})", name + "-doped")
    return (
        *in_sentences(name), name + ")", name + "),", name + ").", f"({name})", f"({name},",
        f"({name}),", f"({name}).",
        name + "'s", name + "’s", name + "...", "bulk-" + name,
        *(("nano-" + name,) if name in _NANO else ()),
        *(name + word for word in _JOINED),
        *(name + word for word in (_JOINED_TO_LIGHT if name in _LIGHT else ())),
    )  # fmt: skip


def in_forms(
    *tables: tuple[Mapping[str, str], Callable[[str], tuple[str, ...]]],
) -> Mapping[str, str]:
    """The rows of the tables in their order and forms; the first row with a phrase counts."""
    together: dict[str, str] = {}
    for table, forms in tables:
        for phrase, value in table.items():
            for form in forms(phrase):
                together.setdefault(form, value)
    return MappingProxyType(together)


def first_of_each(pairs: Iterable[tuple[str, str]]) -> Mapping[str, str]:
    """The rows as a table; the first row with a phrase counts."""
    together: dict[str, str] = {}
    for phrase, value in pairs:
        together.setdefault(phrase, value)
    return MappingProxyType(together)
