"""Causes in words for people: in a few words beside a label, and in full with the line of the table
that says so."""

import re
from collections import Counter
from collections.abc import Iterable, Mapping
from itertools import groupby
from operator import itemgetter
from typing import Any

from rich.text import Text

from tavik_agent.explanation import Cause

from .terminal import written

# Each field has its colour, for its label and for the words of the request that decided it.
COLOURS = {
    "species": "green",
    "formula_hint": "green",
    "structure_mode": "blue",
    "structure_archetype": "cyan",
    "electronic_class": "yellow",
    "correlation_class": "magenta",
    "magnetic_class": "red",
    "material_family": "bright_yellow",
    "requested_energy_unit": "bright_blue",
    "explicit_spin_mode": "bright_magenta",
}
INSIDE = "underline reverse"
PLACES = {
    "query_text": "the query",
    "planner_manifest.purpose": "the purpose",
    "planner_manifest.notes": "the notes",
    "query_intent.structure_description": "the structure",
}
AT_MOST = 4  # lines beside a label


def counts_inside(cause: Cause) -> bool:
    """Whether a piece of a word counts other than most of it from its start: that surprises."""
    word, piece = cause.get("within", ""), cause.get("text", "")
    return bool(word) and not (word.startswith(piece) and 2 * len(piece) > len(word))


def few_words(cause: Cause) -> str:
    match cause["kind"]:
        case "wording":
            word = written(cause.get("within", cause["text"]))
            if counts_inside(cause):
                word = word.replace(piece := written(cause["text"]), f"[{piece}]", 1)
            return f'"{word}" in {place_in_words(cause["where"])}'
        case "table":
            return f"{written(cause['entry'])} in {cause['table']}"
        case "function":
            given = ", ".join(map(written, cause["arguments"]))
            return f"{cause['function']}({given})"
        case "label":
            name = {"species": "the species", "formula_hint": "formula"}.get(
                cause["field"], cause["field"].removeprefix("structure_").replace("_", " ")
            )
            return f"{name} {written(cause['label'])}"
        case "species":
            return f"{written(cause['text'])} among the species"
        case "earlier record":
            return "the earlier record"
        case "intent":
            return f"intent {cause['where'].removeprefix('query_intent.')}"
    return written(cause["where"])


def place_in_words(where: str) -> str:
    if finding := re.fullmatch(r"findings\[(\d+)\]", where):
        return f"finding {int(finding[1]) + 1}"
    return PLACES.get(where.partition("[")[0], where)


def beside_label(causes: Iterable[Cause], colour: str) -> list[Text]:
    """The causes in the order in which they decide; what says the same is counted."""
    counted = Counter(map(few_words, causes))
    lines = [f"{words} ({n} times)" if n > 1 else words for words, n in counted.items()]
    if len(lines) > AT_MOST:
        lines = [*lines[: AT_MOST - 1], f"and {len(lines) - AT_MOST + 1} more, see explain"]
    return [Text(line, colour) for line in lines]


def coloured_texts(arguments: Mapping[str, Any], fields: Mapping[str, Any]) -> dict[str, Text]:
    """The query, and every other text in which words decided, with those words in the colour of
    their field. A piece that counts only inside another word is marked."""
    texts: dict[str, list[tuple[str, str]]] = {}
    if query := arguments.get("query_text"):
        texts["query_text"] = [(character, "bold") for character in str(query)]
    for field, found in fields.items():
        for cause in found["causes"]:
            if cause["kind"] != "wording":
                continue
            where = cause["where"]
            if where not in texts:
                texts[where] = [(character, "") for character in _text_at(arguments, where)]
            style = f"bold {COLOURS[field]} {INSIDE if counts_inside(cause) else ''}"
            for n in range(cause["start"], cause["end"]):
                texts[where][n] = (texts[where][n][0], style)
    return {
        where: Text.assemble(
            *(
                ("".join(written(character) for character, _ in run), style)
                for style, run in groupby(characters, key=itemgetter(1))
            )
        )
        for where, characters in texts.items()
    }


def _text_at(arguments: Mapping[str, Any], where: str) -> str:
    value: Any = arguments
    for key, number in re.findall(r"([^.\[\]]+)(?:\[(\d+)\])?", where):
        value = value[key]
        if number:
            value = value[int(number)]
    return str(value)
