"""The console of all commands: on a terminal in colour and as wide as it; elsewhere plain."""

import json
import sys
from collections.abc import Iterable
from reprlib import repr as brief
from typing import Any

from rich.console import Console, RenderableType
from rich.table import Table

UNLIMITED = 10**9


def console_for_output() -> Console:
    width = None if sys.stdout.isatty() else UNLIMITED
    return Console(width=width, highlight=False, markup=False, emoji=False)


def written(value: Any) -> str:
    """A value of a record on one line; control characters are escaped."""
    match value:
        case "" | []:
            return "-"
        case str():
            return "".join(c if c.isprintable() else ascii(c)[1:-1] for c in value)
        case list() if all(isinstance(item, str) for item in value):
            return ", ".join(map(written, value))
        case None | bool() | int() | float():
            return json.dumps(value)
    return brief(value)


def grid() -> Table:
    return Table(box=None, pad_edge=False, padding=(0, 2, 0, 0), header_style="bold")


def show(console: Console, parts: Iterable[RenderableType]) -> None:
    """Prints the parts below each other, without the blanks that pad the last column."""
    with console.capture() as screen:
        for part in parts:
            console.print(part)
    print(*(line.rstrip() for line in screen.get().splitlines()), sep="\n")
