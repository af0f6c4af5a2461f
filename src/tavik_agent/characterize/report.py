"""What the summary and the comparison of runs are made of: counts with bars, and the page that
holds the same as the screen.
"""

import os
from collections import Counter
from collections.abc import Iterable
from typing import Any, NamedTuple

from rich.console import Console, ConsoleOptions, RenderableType, RenderResult
from rich.measure import Measurement
from rich.table import Table
from rich.text import Text

from .files import InputError, read_lines, write_file
from .terminal import PAGE, console_for_output, grid, page, show, written

BAR_CELLS = 30


class Bar(NamedTuple):
    """A share as a bar, in the characters that the console can show."""

    share: float

    def __rich_measure__(self, console: Console, options: ConsoleOptions) -> Measurement:
        return Measurement(BAR_CELLS // 3, BAR_CELLS).with_maximum(options.max_width)

    def __rich_console__(self, console: Console, options: ConsoleOptions) -> RenderResult:
        cells = min(BAR_CELLS, options.max_width)
        done = round(cells * self.share) or (1 if self.share else 0)
        full, rest = "#." if options.ascii_only else "█░"
        yield Text.assemble((full * done, "cyan"), (rest * (cells - done), "dim"))


def counts(heading: str, rows: Iterable[tuple[Any, int]], total: int) -> Table:
    """A row with a bar for each value and how often it came, out of the total."""
    table = grid()
    table.add_column(heading, overflow="fold", min_width=26)
    table.add_column("", justify="right", no_wrap=True, min_width=9)
    table.add_column("", justify="right", no_wrap=True, min_width=6)
    table.add_column("", no_wrap=True)
    for value, times in rows:
        add_count(table, value, times, total)
    return table


def add_count(table: Table, value: Any, times: int, total: int) -> None:
    share = times / total if total else 0
    label = Text(written(value), "" if times else "dim")
    table.add_row(label, f"{times:,}", f"{share:.1%}", Bar(share))


def most_common(heading: str, counter: Counter[Any], total: int, rows: int) -> Table:
    table = counts(heading, counter.most_common(rows), total)
    if len(counter) > rows:
        table.add_row(Text(f"and {len(counter) - rows:,} more", "dim"))
    return table


def report(title: str, parts: Iterable[RenderableType], html: str | None) -> None:
    """Prints the parts, or writes them as a page to the file of that name, "-" being standard
    output.
    """
    if html is None:
        show(console_for_output(), parts)
        return
    if html != "-" and os.path.exists(html) and not _is_page(html):
        raise InputError(html, "expected a new file, or a page to write anew")
    write_file(html, page(title, parts).encode("utf-8", "backslashreplace"))


def _is_page(path: str) -> bool:
    """A device and a pipe are none, and are not read."""
    return os.path.isfile(path) and next(read_lines(path), b"") == _FIRST_LINE


_FIRST_LINE = PAGE.partition("\n")[0].encode() + b"\n"
