"""Shows an explanation: of every decided field each cause in full, with the line of the table and
the comment there, what the label would be otherwise, and where the rules of the field stand.
"""

from collections.abc import Iterator, Mapping
from typing import Any

from rich.console import RenderableType
from rich.text import Text

from tavik_agent.explanation import Cause, Explanation

from .screen import request_parts
from .terminal import indented, written
from .unread import unread_line
from .why import COLOURS, counts_inside, few_words

RULES = "docs/decisions.md"


def explanation_parts(
    arguments: Mapping[str, Any], explanation: Explanation
) -> Iterator[RenderableType]:
    yield from request_parts(arguments, explanation)
    for field, found in explanation["fields"].items():
        if not found["causes"]:
            continue
        yield Text.assemble(
            (field, "bold"),
            "  ",
            (written(found["label"]), f"bold {COLOURS[field]}"),
            (f"  otherwise {written(found['otherwise'])}", ""),
        )
        for cause in found["causes"]:
            yield indented(Text(few_words(cause), COLOURS[field]), 2)
            if details := " ".join(cause_in_full(cause)):
                yield indented(Text(details), 4)
        yield indented(Text(f"rules: {RULES}, {field}", "dim"), 2)
        yield ""
    undecided = [field for field, found in explanation["fields"].items() if not found["causes"]]
    if undecided:
        yield Text(f"not decided: {', '.join(undecided)}", "dim")
    if unread := unread_line(arguments, explanation["fields"]):
        yield Text(unread)


def cause_in_full(cause: Cause) -> Iterator[str]:
    """What a cause stands for, where the entry stands, and the comment there."""
    if cause["kind"] == "wording":
        yield f"{cause['where']}, characters {cause['start']} to {cause['end']}."
        if counts_inside(cause):
            yield f'"{written(cause["text"])}" counts inside another word, too.'
    elif cause["kind"] in ("intent", "argument"):
        yield f"{cause['where']}{': ' + written(cause['text']) if cause.get('text') else ''}"
    if meaning := cause.get("symbols") or cause.get("formula"):
        yield f"It stands for {written(meaning)}."
    if cause["kind"] == "wording" and "entry" in cause:
        yield f"{written(cause['entry'])} in {cause['table']}."
    yield from source_in_words(cause)


def source_in_words(cause: Mapping[str, Any]) -> Iterator[str]:
    if "file" in cause:
        made = f", made by the rule {cause['rule']}" if "rule" in cause else ""
        yield f"{cause['file']}:{cause['line']}{made}."
    if note := cause.get("note"):
        yield written(note)
