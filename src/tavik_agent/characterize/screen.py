"""Shows a record: its labels in a table with the evidence for each, the confidence as a bar, the
evidence in order. On a terminal it is in colour and fits the width; elsewhere it is plain and not
wrapped.
"""

from collections.abc import Iterator, Mapping
from typing import Any

from rich.console import Console, Group, RenderableType
from rich.padding import Padding
from rich.table import Table
from rich.text import Text

from .evidence import field_of
from .terminal import grid, show, written

UNDECIDED: tuple[Any, ...] = ("", "unknown", "other", [])
ACCOUNT = ("evidence", "confidence")  # say how the labels were reached
ROOM_FOR_THREE_COLUMNS = 78
BAR_CELLS = 20
FIELD_CELLS = 23


def show_record(console: Console, record: Mapping[str, Any], query: str) -> None:
    evidence = [written(message) for message in record["evidence"]]
    parts: list[RenderableType] = [_labels(record, evidence, console.width)]
    parts += ["", _confidence(record["confidence"], ascii_only=console.options.ascii_only)]
    if query:
        parts = [Text(written(query), "bold"), "", *parts]
    if evidence:
        parts += ["", _numbered(evidence)]
    show(console, parts)


def _labels(record: Mapping[str, Any], evidence: list[str], width: int) -> RenderableType:
    rows = [
        (
            Text(written(field)),
            Text(written(value), "dim" if value in UNDECIDED else "bold cyan"),
            Text("\n").join(_about(field, evidence)),
        )
        for field, value in record.items()
        if field not in ACCOUNT
    ]
    if width < ROOM_FOR_THREE_COLUMNS:
        return Group(*(line for row in rows for line in _narrow(*row)))
    table = grid()
    table.add_column("field", no_wrap=True)
    table.add_column("label", overflow="fold")
    table.add_column("evidence", overflow="fold")
    for row in rows:
        table.add_row(*row)
    return table


def _narrow(field: Text, label: Text, about: Text) -> Iterator[RenderableType]:
    field.align("left", FIELD_CELLS)
    yield field + label
    if about:
        yield Padding(about, (0, 0, 0, 2))


def _about(field: str, evidence: list[str]) -> list[Text]:
    return [
        Text(f"{number} {message}", "green")
        for number, message in enumerate(evidence, 1)
        if field_of(message) == field
    ]


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
