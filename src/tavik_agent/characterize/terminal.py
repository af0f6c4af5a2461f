"""The console of all commands: on a terminal in colour and as wide as it; elsewhere plain."""

import html
import json
import sys
from collections.abc import Iterable
from io import StringIO
from reprlib import repr as brief
from typing import Any

from rich.console import Console, RenderableType
from rich.padding import Padding
from rich.table import Table

UNLIMITED = 10**9
PAGE_WIDTH = 100

# Braces that are doubled stand for themselves.
PAGE = """<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>{title}</title>
<style>
body {{{{ color: {{foreground}}; background: {{background}}; margin: 2em; }}}}
pre {{{{ font-family: ui-monospace, Menlo, Consolas, "DejaVu Sans Mono", monospace; }}}}
{{stylesheet}}
</style>
</head>
<body><pre>{{code}}</pre></body>
</html>
"""


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


def indented(part: RenderableType, cells: int) -> Padding:
    """The part behind so many blanks; as wide as it needs, since a width may be unlimited."""
    return Padding(part, (0, 0, 0, cells), expand=False)


def show(console: Console, parts: Iterable[RenderableType]) -> None:
    """Prints the parts below each other, without the blanks that pad the last column."""
    with console.capture() as screen:
        for part in parts:
            console.print(part)
    print(*(line.rstrip() for line in screen.get().splitlines()), sep="\n")


def page(title: str, parts: Iterable[RenderableType]) -> str:
    """The parts below each other as an HTML page that needs nothing from outside."""
    console = Console(
        record=True, file=StringIO(), force_terminal=True, width=PAGE_WIDTH, highlight=False
    )
    for part in parts:
        console.print(part, markup=False, emoji=False)
    title = html.escape(title).replace("{", "{{").replace("}", "}}")
    return console.export_html(code_format=PAGE.format(title=title))
