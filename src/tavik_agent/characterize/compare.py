"""Compares two runs over the same requests: a line for each label that changed, then how often each
field did. Evidence and confidence follow from the labels and are not compared.
"""

from collections import Counter
from collections.abc import Iterator
from dataclasses import dataclass, field
from itertools import zip_longest
from reprlib import repr as brief
from typing import Any, NamedTuple

from rich.console import Console
from rich.text import Text

from .files import InputError, input_place, parse_json, read_lines
from .screen import ACCOUNT
from .terminal import grid, written

Record = dict[str, Any]


def _is_answer(value: Any) -> bool:
    return isinstance(value, dict) and (_failure(value) is not None or value.keys() >= {*ACCOUNT})


class Change(NamedTuple):
    name: str
    before: str
    after: str


@dataclass
class Counts:
    compared: int = 0
    changed: int = 0
    by_field: Counter[str] = field(default_factory=Counter)
    alone: Counter[str] = field(default_factory=Counter)  # lines that the other file lacks, by file


def compare(console: Console, path: str, other: str) -> bool:
    """Prints the changes, then their counts; returns whether there are none."""
    counts = Counts()
    for number, pair in enumerate(zip_longest(_records(path), _records(other)), 1):
        before, after = pair
        if before is None or after is None:
            counts.alone[input_place(other if before is None else path)] += 1
            continue
        changes = [*_changes(before, after)]
        counts.compared += 1
        counts.changed += bool(changes)
        counts.by_field.update(change.name for change in changes)
        for change in changes:
            console.print(_line(number, before | after, change), soft_wrap=True)
    _print_counts(console, counts)
    return not counts.changed and not counts.alone


def _records(path: str) -> Iterator[Record]:
    place = input_place(path)
    for number, line in enumerate(read_lines(path), 1):
        record: Record = parse_json(line.rstrip(b"\r\n"), place, number)
        if not _is_answer(record):
            what = f"expected a record or an error object, not {brief(record)}"
            raise InputError(f"{place}:{number}", what)
        yield record


def _changes(before: Record, after: Record) -> Iterator[Change]:
    failures = _failure(before), _failure(after)
    if any(failures):
        if failures[0] != failures[1]:
            yield Change("error", *(written(why) if why else "answered" for why in failures))
        return
    for name in before | after:
        old, new = before.get(name, ""), after.get(name, "")
        if name not in ACCOUNT and old != new:
            yield Change(name, written(old), written(new))


def _failure(record: Record) -> str | None:
    """Why a line could not be answered, when it could not."""
    match record:
        case {"error": {"message": str(why)}} if len(record) == 1:
            return why
    return None


def _line(number: int, record: Record, change: Change) -> Text:
    return Text.assemble(
        f"{number:>7}  {written(record.get('step', '')):<8}  {written(change.name):<22}  ",
        (change.before, "red"),
        " -> ",
        (change.after, "green"),
    )


def _print_counts(console: Console, counts: Counts) -> None:
    if counts.changed:
        table = grid()
        table.add_column("field")
        table.add_column("changes", justify="right")
        for name, times in counts.by_field.most_common():
            table.add_row(written(name), str(times))
        console.print("", table, "", sep="\n")
    console.print(f"{counts.changed} of {counts.compared} requests changed")
    for place, lines in counts.alone.items():
        console.print(f"{lines} only in {written(place)}, from line {counts.compared + 1} on")
