"""lookup: how a name, a formula, a symbol or an abbreviation is read, and which tables hold it."""

from collections.abc import Collection, Iterator, Mapping
from typing import Any, Literal, TypedDict

from .explain import explain
from .private_module import private_module
from .results import Cause, FieldExplanation
from .sources import source_of
from .spellings import Remark, left_out, nearest

ACRONYMS = "METHOD_ACRONYMS"
SYMBOLS = "KNOWN_ELEMENT_SYMBOLS"
NAMED = ("species", "formula_hint")


class Reading(TypedDict):
    """One way in which a word is read, and what it then stands for."""

    kind: Literal["phrase", "element", "formula", "acronym", "keyword"]
    meaning: str


class Answer(TypedDict):
    word: str
    readings: list[Reading]
    tables: list[Cause]
    """Every table that holds the word, or the formula that it stands for."""
    alone: dict[str, Any]
    """What was decided by a request of the word alone, by field."""
    nearest: list[str]
    """Like spellings that are known, when the word is not."""
    left_out: list[Remark]


def lookup(word: str) -> Answer:
    word = " ".join(word.split())
    alone = explain(step="", query_text=word)["fields"]
    module = private_module()
    with module.lock:
        module.follow()
        tables = dict(_collections(module.tables()))
        readings = [*_readings(word, tables)]
        spellings = {word, *(r["meaning"] for r in readings if r["kind"] == "phrase")}
    held = [*_held(word, spellings, tables)]
    readings += _keywords(word, alone)
    decided = {field: found["label"] for field, found in alone.items() if found["causes"]}
    remarks = left_out(word)
    is_known = bool(held or remarks or decided or not word)
    entries = (entry for name, table in tables.items() if name != ACRONYMS for entry in table)
    return {
        "word": word,
        "readings": readings,
        "tables": held,
        "alone": decided,
        "nearest": [] if is_known else nearest(word, entries),
        "left_out": remarks,
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


def _keywords(word: str, fields: Mapping[str, FieldExplanation]) -> Iterator[Reading]:
    """The fields that the word decides, or a piece of it, but for what it names."""
    for field, found in fields.items():
        texts = [cause["text"] for cause in found["causes"] if cause["kind"] == "wording"]
        if texts and field not in NAMED:
            piece = "" if word in texts else f", by {' and '.join(texts)}"
            yield {"kind": "keyword", "meaning": f"{field} {found['label']}{piece}"}


def _held(
    word: str, spellings: Collection[str], tables: Mapping[str, Collection[Any]]
) -> Iterator[Cause]:
    for name, table in tables.items():
        entries = {word.lower()} if isinstance(table, Mapping) else set(spellings)
        if name == ACRONYMS:
            entries = set() if word.islower() else {word.upper()}
        for entry in sorted(entries & {*(e for e in entries if e in table)}):
            yield {"kind": "table", "table": name, "entry": entry, **source_of(name, entry)}
