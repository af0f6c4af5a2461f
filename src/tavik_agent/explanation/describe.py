"""Causes as the caller reads them."""

from collections.abc import Mapping
from functools import cache
from itertools import pairwise
from typing import Any

from .document import Document, Piece
from .notes import Question
from .results import Cause
from .sources import source_of
from .trials import Trials


def described(
    found: list[Question | Piece], field: str, label: Any, trials: Trials, document: Document
) -> list[Cause]:
    tables = {n: t for n, t in trials.module.tables().items() if isinstance(t, Mapping)}
    meaning = cache(lambda text: _meaning(text, field, label, trials, tables))
    causes: list[Cause] = []
    for cause in found:
        if isinstance(cause, Piece):
            wordings = _wordings(cause, document)
            if field in ("species", "formula_hint"):
                wordings = [cause | meaning(cause["text"]) for cause in wordings]
            causes += wordings
        else:
            causes.append(_answer(cause, trials))
    for one, other in pairwise(causes):  # words that name something only together
        if one.get("symbols") == other.get("symbols") == []:
            together = meaning(f"{one['text'].strip()} {other['text'].strip()}")
            one.update(together)
            other.update(together)
    return causes


def _answer(question: Question, trials: Trials) -> Cause:
    match question:
        case ("table", name, entry):
            return {"kind": "table", "table": name, "entry": entry, **source_of(name, entry)}
        case ("function", name, arguments):
            given = [[*v] if isinstance(v, tuple) else v for v in arguments]
            return {"kind": "function", "function": name, "arguments": given}
        case ("species", symbol):
            return {"kind": "species", "text": str(symbol)}
        case ("read", path):
            where = ".".join(map(str, path))
            if path[0] != "query_intent":
                return {"kind": "argument", "where": where}
            return {"kind": "intent", "where": where, "text": trials.text_at(path)}
    _, parameter, _ = question
    if parameter in trials.wiring.intent:
        path = ("query_intent", trials.wiring.intent[parameter])
        return {"kind": "intent", "where": ".".join(path), "text": trials.text_at(path)}
    return {"kind": "label", "field": parameter, "label": trials.decided_before()[parameter]}


def _wordings(piece: Piece, document: Document) -> list[Cause]:
    causes: list[Cause] = []
    for part in document.split(piece):
        place = document.place(part)
        cause: Cause = {"kind": "wording", "where": place.where}
        cause |= {"start": place.start, "end": place.end, "text": place.text}
        if (word := document.word_around(part)) != place.text:
            cause["within"] = word
        causes.append(cause)
    return causes


def _meaning(
    text: str, field: str, label: Any, trials: Trials, tables: Mapping[str, Mapping[str, Any]]
) -> Cause:
    """What a name or a formula stands for, and the row that says so when there is one: a formula
    before an element."""
    meaning: dict[str, Any] = {"formula": label}
    if field == "species":
        meaning = {"symbols": trials.module.function("_species_from_text")(text)}
    row = text.lower()
    held = ((name, table[row]) for name, table in tables.items() if row in table)
    names = {name: str(value) for name, value in held if field == "species" or value == label}
    if names:
        name = max(names, key=lambda name: len(names[name]))
        meaning |= {"table": name, "entry": row, **source_of(name, row)}
    found: Cause = meaning  # type: ignore[assignment]
    return found
