"""What is said of a word that is not known: like spellings that are, and what the tables leave out
on purpose.
"""

import difflib
import re
from collections.abc import Iterable, Iterator
from functools import cache
from string import ascii_lowercase, digits
from typing import Any, TypedDict

from tavik_agent.material_characterization import characterize_material

from .explain import explain
from .sources import remarks

NEAREST = 5
LIKENESS = 0.75
# A spelling is sought among those that are about as long.
DIFFERENCE = 2
PLAIN = re.compile(r"[A-Za-z0-9 -]+")
SAID_OF_ABSENCE = re.compile(r"\b([Ll]eft|kept) out\b|\bno row\b")
# One of several names that a sentence lists; longer pieces are prose.
LISTED = re.compile(r"[\w-]+( [\w-]+)?")
TYPED = ascii_lowercase + digits + "+- "
# A shorter keyword inside a word may be there by chance.
SHORTEST_PIECE = 5
LONGEST = 40  # characters of a word in which one is changed


class Remark(TypedDict):
    """A comment of the tables that names the word among what was left out."""

    file: str
    line: int
    note: str


def left_out(word: str) -> list[Remark]:
    named = re.compile(rf"(?<![\w-]){re.escape(word)}(?![\w-])")
    return [remark.copy() for remark in _remarks() if word and named.search(remark["note"])]


@cache
def _remarks() -> list[Remark]:
    """The sentences of the tables' comments that say what was left out."""
    return [
        {"file": file, "line": line, "note": sentence}
        for file, line, remark in remarks()
        for sentence in re.split(r"(?<=[.;]) (?=[A-Z])", remark)
        if SAID_OF_ABSENCE.search(sentence)
    ]


def nearest(word: str, entries: Iterable[str]) -> list[str]:
    """Spellings that differ in capitals alone, those in which one letter makes a keyword, then
    those that differ little, of the entries of tables and of what was left out."""
    like = {
        entry
        for entry in (*entries, *_names_left_out())
        if abs(len(entry) - len(word)) <= DIFFERENCE
        and entry[:1].lower() == word[:1].lower()
        and PLAIN.fullmatch(entry)
    }
    same = sorted(entry for entry in like if entry.lower() == word.lower())
    lowered = {entry.lower(): entry for entry in sorted(like)}
    close = difflib.get_close_matches(word.lower(), lowered, NEAREST, LIKENESS)
    keywords = _with_keyword(word.lower()) if len(word.split()) == 1 else ()
    found = (*same, *keywords, *(lowered[spelling] for spelling in close))
    return [*dict.fromkeys(found)][:NEAREST]


def _names_left_out() -> Iterator[str]:
    for remark in _remarks():
        pieces = map(str.strip, re.split(r"[,;:()]|\.{3}", remark["note"]))
        yield from filter(LISTED.fullmatch, pieces)


def _with_keyword(word: str) -> list[str]:
    """The spellings with one letter more, less or another that a keyword then decides: as a whole,
    or else a long piece of it. The rules are asked, since they alone know the keywords."""
    before, pieces = _decided(word), {}
    for spelling in _one_slip_from(word) if len(word) <= LONGEST else ():
        new = [field for field, label in _decided(spelling).items() if before[field] != label]
        fields = explain(step="", query_text=spelling)["fields"] if new else {}
        for cause in (cause for field in new for cause in fields[field]["causes"]):
            if cause["kind"] == "wording":
                pieces[spelling] = cause["text"]
    whole = [spelling for spelling, piece in pieces.items() if piece == spelling]
    return whole or [s for s, piece in pieces.items() if len(piece) >= SHORTEST_PIECE]


def _decided(word: str) -> dict[str, Any]:
    record = characterize_material(step="", query_text=word)
    return {
        k: v for k, v in record.items() if k.endswith(("_class", "_archetype", "_mode", "_unit"))
    }


def _one_slip_from(word: str) -> Iterator[str]:
    """Two letters in the other order, a letter more, less, or another."""
    cuts = [(word[:n], word[n:]) for n in range(len(word) + 1)]
    yield from (a + b[1] + b[0] + b[2:] for a, b in cuts if len(b) > 1)
    yield from (a + letter + b for a, b in cuts for letter in TYPED)
    yield from (a + b[1:] for a, b in cuts if b)
    yield from (a + letter + b[1:] for a, b in cuts if b for letter in TYPED)
