"""Which words of a text look like a formula or like the name of a compound. Where such a text gave
no species, they are what the chemistry tables may lack.
"""

import re
import unicodedata
from collections import Counter
from collections.abc import Iterator

from tavik_agent.material_reference_data import KNOWN_ELEMENT_SYMBOLS
from tavik_agent.method_acronyms import METHOD_ACRONYMS

# What LaTeX and HTML put around a subscript.
MARKUP = re.compile(r"</?su[bp]>|\\(?:mathrm|text|rm|ce)\b\s*|[${}_\\]")
MARKS = ".,;:!?\"'"
OPENING, CLOSING = "([", ")]"
WORD = re.compile(r"[\w()\[\].]+")
SYMBOL = "|".join(sorted(KNOWN_ELEMENT_SYMBOLS, key=len, reverse=True))
SYMBOLS = re.compile(rf"(?:[(\[]*(?:{SYMBOL})[\d.)\]]*)+")
SYMBOL_OF_TWO_LETTERS = re.compile("|".join(s for s in SYMBOL.split("|") if len(s) == 2))
# What is none: a Hubbard U as in U_Co and U_{Co-3d}, a defect as in Mg_Ga, a pressure.
NO_MATERIAL = re.compile(
    rf"\bU_[^\s,;)]*|\b(?:{SYMBOL})_\{{?(?:{SYMBOL})\b(?!_)|(?<![\w.])\d[\d.]*[kMGT]?(?:Pa|bar)\b"
)
# perovskite, dihalide, titanate, borophene, silicane, olivine, lawrencium, their plurals
NAME = re.compile(r"[a-z]{3,}(?:it|id|at|en|an|in)es?|[a-z]{3,}iums?")


def candidates(text: str) -> set[str]:
    """Formulas as they are written, names in small letters; without markup."""
    plain = MARKUP.sub("", NO_MATERIAL.sub(" ", unicodedata.normalize("NFKC", text)))
    return {found for word in WORD.findall(plain) for found in _candidate(bare(word))}


def bare(word: str) -> str:
    """The word without the marks and brackets of its sentence; (CH3)2CO keeps its own."""
    partners = _bracket_partners(word)
    start, end = 0, len(word)
    while start < end:
        first, last = word[start], word[end - 1]
        if first in MARKS or (first in OPENING and start not in partners):
            start += 1
        elif last in MARKS or (last in CLOSING and end - 1 not in partners):
            end -= 1
        elif partners.get(start) == end - 1:
            start, end = start + 1, end - 1
        else:
            break
    return word[start:end]


def _bracket_partners(word: str) -> dict[int, int]:
    """Where each bracket is closed, and where each was opened, but for those without a partner."""
    partners: dict[int, int] = {}
    opened: list[int] = []
    for n, character in enumerate(word):
        if character in OPENING:
            opened.append(n)
        elif character in CLOSING and opened:
            partners[n] = opened.pop()
            partners[partners[n]] = n
    return partners


def _candidate(word: str) -> Iterator[str]:
    if _is_formula(word):
        yield word
    elif NAME.fullmatch(name := word.lower()):
        yield name


def _is_formula(word: str) -> bool:
    """Symbols of two elements; with a number also other letters, as in the formula MAPbI3."""
    if word.upper() in METHOD_ACRONYMS or sum(map(str.isupper, word)) < 2:
        return False
    if any(map(str.isdecimal, word)):
        return bool(SYMBOLS.fullmatch(word) or SYMBOL_OF_TWO_LETTERS.search(word))
    return not word.isupper() and bool(SYMBOLS.fullmatch(word))


class Unrecognised:
    """Counts the requests without species in which a candidate stands. One that stands as often in
    requests with species is an ordinary word, or names no material.
    """

    def __init__(self) -> None:
        self._without: Counter[str] = Counter()
        self._with: Counter[str] = Counter()

    def add(self, text: str, *, with_species: bool) -> None:
        (self._with if with_species else self._without).update(candidates(text))

    def found(self) -> Counter[str]:
        words = self._without.items()
        return Counter({word: times for word, times in words if times > self._with[word]})
