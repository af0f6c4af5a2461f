"""Shows a record: the request with the words that decided, its labels in a table with why each was
given, the confidence as a bar, the evidence in order. On a terminal it is in colour and fits the
width; elsewhere it is plain and not wrapped.
"""

from collections.abc import Iterator, Mapping
from typing import Any

from rich.console import Console, Group, RenderableType
from rich.table import Table
from rich.text import Text

from tavik_agent.explanation import Explanation

from .terminal import grid, indented, show, written
from .unread import unread_line
from .why import COLOURS, beside_label, coloured_texts, place_in_words

UNDECIDED: tuple[Any, ...] = ("", "unknown", "other", [])
ACCOUNT = ("evidence", "confidence")  # say how the labels were reached
ROOM_FOR_THREE_COLUMNS = 78
BAR_CELLS = 20
FIELD_CELLS = 23


def show_record(console: Console, explanation: Explanation, arguments: Mapping[str, Any]) -> None:
    record = explanation["record"]
    evidence = [written(message) for message in record["evidence"]]
    parts: list[RenderableType] = [*request_parts(arguments, explanation)]
    parts += [_labels(explanation, console.width), ""]
    if unread := unread_line(arguments, explanation["fields"]):
        parts += [Text(unread), ""]
    parts.append(_confidence(record["confidence"], ascii_only=console.options.ascii_only))
    if evidence:
        parts += ["", _numbered(evidence)]
    show(console, parts)


def request_parts(
    arguments: Mapping[str, Any], explanation: Explanation
) -> Iterator[RenderableType]:
    """The texts of the request that decided, below each other."""
    texts = coloured_texts(arguments, explanation["fields"])
    for where, text in texts.items():
        is_query = where == "query_text"
        yield text if is_query else Text.assemble((f"{place_in_words(where)}: ", "dim"), text)
    if texts:
        yield ""


def _labels(explanation: Explanation, width: int) -> RenderableType:
    rows = [
        _row(field, value, explanation)
        for field, value in explanation["record"].items()
        if field not in ACCOUNT
    ]
    if width < ROOM_FOR_THREE_COLUMNS:
        return Group(*(line for row in rows for line in _narrow(*row)))
    table = grid()
    table.padding = (0, 1, 0, 0)
    table.add_column("field", no_wrap=True)
    table.add_column("label", overflow="fold")
    table.add_column("why", overflow="fold")
    for field, label, why in rows:
        table.add_row(Text(f"{field} "), label, why)
    return table


def _row(field: str, value: Any, explanation: Explanation) -> tuple[Text, Text, Text]:
    colour = COLOURS.get(field, "cyan")
    found = explanation["fields"].get(field)
    style = "dim" if value in UNDECIDED else f"bold {colour}"
    why = beside_label(found["causes"], colour) if found else []
    return Text(written(field)), Text(written(value), style), Text("\n").join(why)


def _narrow(field: Text, label: Text, why: Text) -> Iterator[RenderableType]:
    field.align("left", FIELD_CELLS)
    yield field + label
    if why:
        yield indented(why, 2)


def _confidence(confidence: float, *, ascii_only: bool) -> Text:
    done = round(BAR_CELLS * min(confidence, 1)) if confidence > 0 else 0
    full, rest = "#." if ascii_only else "█░"
    return Text.assemble(
        ("confidence  ", "bold"),
        (full * done, "cyan"),
        (rest * (BAR_CELLS - done), "dim"),
        f"  {confidence:g}",
    )


def _numbered(evidence: list[str]) -> Table:
    table = grid()
    table.add_column("", justify="right", no_wrap=True)
    table.add_column("evidence, in the order of the decisions", overflow="fold")
    for number, message in enumerate(evidence, 1):
        table.add_row(str(number), Text(message, "green"))
    return table
