"""What a batch says on standard error while it runs: messages, and on a terminal a bar that shows
how much of the source has been read.
"""

import os
import sys
from collections.abc import Iterator
from contextlib import contextmanager

from .blocks import is_file


class Messages:
    """Messages alone."""

    def report(self, message: str) -> None:
        print(message, file=sys.stderr)

    def show(self, lines: int, read: int) -> None:
        """Shows how many lines are answered, and how many bytes that was."""


@contextmanager
def messages_for(source: os.stat_result, *, bar: bool) -> Iterator[Messages]:
    if not (bar and sys.stderr.isatty()):
        yield Messages()
        return
    from rich.console import Console
    from rich.progress import BarColumn, Progress, TextColumn, TimeRemainingColumn

    console = Console(stderr=True, highlight=False, markup=False, emoji=False, soft_wrap=True)
    count = TextColumn("{task.fields[lines]:,} lines")
    with Progress(count, BarColumn(), TimeRemainingColumn(), console=console) as progress:
        task = progress.add_task("", total=source.st_size if is_file(source) else None, lines=0)

        class WithBar(Messages):
            def report(self, message: str) -> None:
                console.print(message)

            def show(self, lines: int, read: int) -> None:
                progress.update(task, completed=read, lines=lines)

        yield WithBar()
