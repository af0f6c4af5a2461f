"""lookup: how a name, a formula, a symbol or an abbreviation is read, and which tables hold it."""

import difflib
import re
from collections.abc import Collection, Iterator, Mapping
from typing import Any, Literal, TypedDict

from .explain import explain
from .private_module import private_module
from .results import Cause
from .sources import remarks, source_of

ACRONYMS = "METHOD_ACRONYMS"
SYMBOLS = "KNOWN_ELEMENT_SYMBOLS"
NEAREST = 5
LIKENESS = 0.75
# A spelling is sought among those that are about as long.
DIFFERENCE = 2
SAID_OF_ABSENCE = re.compile(r"\b([Ll]eft|kept) out\b|\bno row\b")


class Reading(TypedDict):
    """One way in which a word is read, and what it then stands for."""

    kind: Literal["phrase", "element", "formula", "acronym"]
    meaning: str


class Remark(TypedDict):
    """A comment of the tables that names the word among what was left out."""

    file: str
    line: int
    note: str


class Answer(TypedDict):
    word: str
    readings: list[Reading]
    tables: list[Cause]
    """Every table that holds the word, or the formula that it stands for."""
    alone: dict[str, Any]
    """What was decided by a request of the word alone, by field."""
    nearest: list[str]
    """Like spellings in the tables, when none holds the word."""
    left_out: list[Remark]


def lookup(word: str) -> Answer:
    word = " ".join(word.split())
    alone = explain(step="", query_text=word)
    module = private_module()
    with module.lock:
        module.follow()
        tables = dict(_collections(module.tables()))
        readings = [*_readings(word, tables)]
        spellings = {word, *(r["meaning"] for r in readings if r["kind"] == "phrase")}
    held = [*_held(word, spellings, tables)]
    return {
        "word": word,
        "readings": readings,
        "tables": held,
        "alone": {f: v["label"] for f, v in alone["fields"].items() if v["causes"]},
        "nearest": [] if held or not word else _nearest(word, tables),
        "left_out": [*_left_out(word)],
    }


def _collections(tables: Mapping[str, Any]) -> Iterator[tuple[str, Collection[Any]]]:
    """The tables by name, those too that a function returns."""
    for name, table in tables.items():
        if isinstance(table, Collection) and name[0] != "_":
            yield name, table
        elif not isinstance(table, Collection):
            try:
                entries = table()
            except TypeError:  # a function of something
                continue
            yield name, entries


def _readings(word: str, tables: Mapping[str, Collection[Any]]) -> Iterator[Reading]:
    parts = private_module().function("_formula_parts")(word)
    dropped = bool(parts) and word.upper() in tables[ACRONYMS]
    for table in tables.values():
        if isinstance(table, Mapping) and word.lower() in table:
            yield {"kind": "phrase", "meaning": str(table[word.lower()])}
    if dropped or (word.isupper() and word in tables[ACRONYMS]):
        yield {"kind": "acronym", "meaning": "never read as a formula"}
    elif word in tables[SYMBOLS]:
        yield {"kind": "element", "meaning": word}
    elif parts:
        yield {"kind": "formula", "meaning": ", ".join(symbol for symbol, _ in parts)}


def _held(
    word: str, spellings: Collection[str], tables: Mapping[str, Collection[Any]]
) -> Iterator[Cause]:
    for name, table in tables.items():
        entries = {word.lower()} if isinstance(table, Mapping) else set(spellings)
        if name == ACRONYMS:
            entries = set() if word.islower() else {word.upper()}
        for entry in sorted(entries & {*(e for e in entries if e in table)}):
            yield {"kind": "table", "table": name, "entry": entry, **source_of(name, entry)}


def _nearest(word: str, tables: Mapping[str, Collection[Any]]) -> list[str]:
    """Spellings that differ in capitals alone, then those that differ little."""
    plain = re.compile(r"[A-Za-z0-9 -]+")
    like = {
        entry
        for name, table in tables.items()
        if name != ACRONYMS
        for entry in table
        if abs(len(entry) - len(word)) <= DIFFERENCE
        and entry[:1].lower() == word[:1].lower()
        and plain.fullmatch(entry)
    }
    same = sorted(entry for entry in like if entry.lower() == word.lower())
    lowered = {entry.lower(): entry for entry in sorted(like)}
    close = difflib.get_close_matches(word.lower(), lowered, NEAREST, LIKENESS)
    return [*dict.fromkeys([*same, *(lowered[spelling] for spelling in close)])][:NEAREST]


def _left_out(word: str) -> Iterator[Remark]:
    """The sentences of the tables' comments that say so."""
    named = re.compile(rf"(?<![\w-]){re.escape(word)}(?![\w-])")
    for file, line, remark in remarks():
        for sentence in re.split(r"(?<=[.;]) (?=[A-Z])", remark):
            if word and SAID_OF_ABSENCE.search(sentence) and named.search(sentence):
                yield {"file": file, "line": line, "note": sentence}
