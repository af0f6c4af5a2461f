"""The command lookup: how words are read, which tables hold them, and what is like them."""

import sys
from collections.abc import Iterator

import click
from rich.console import RenderableType
from rich.text import Text

from tavik_agent.explanation import Answer
from tavik_agent.explanation import lookup as look_up

from .explain_screen import source_in_words
from .files import json_bytes
from .terminal import console_for_output, indented, show, written


@click.command()
@click.argument("words", nargs=-1, required=True, metavar="WORD...")
@click.option("--json", "as_json", is_flag=True, help="Print the answers as JSON.")
def lookup(words: tuple[str, ...], as_json: bool) -> int:
    """Show how each WORD is read: a name, a formula, a symbol or an abbreviation.

    A name of several words goes in quotation marks.
    """
    answers = [look_up(word) for word in words]
    if as_json:
        sys.stdout.buffer.write(json_bytes(answers, "the words", indent=True))
    else:
        show(console_for_output(), (part for answer in answers for part in _parts(answer)))
    return 0


def _parts(answer: Answer) -> Iterator[RenderableType]:
    yield Text(written(answer["word"]), "bold")
    for reading in answer["readings"]:
        yield _indented(f"{reading['kind']}: {written(reading['meaning'])}")
    if not answer["readings"]:
        yield _indented("no name, formula, symbol, abbreviation or keyword that is known")
    for cause in answer["tables"]:
        yield _indented(f"{written(cause['entry'])} in {cause['table']}")
        yield _indented(" ".join(source_in_words(cause)), 4)
    alone = ", ".join(f"{field} {written(label)}" for field, label in answer["alone"].items())
    yield _indented(f"a request of it alone: {alone or 'decides nothing'}")
    if answer["nearest"]:
        yield _indented(f"spelt like it: {', '.join(map(written, answer['nearest']))}")
    for remark in answer["left_out"]:
        yield _indented(f"left out on purpose, {remark['file']}:{remark['line']}")
        yield _indented(written(remark["note"]), 4)
    yield ""


def _indented(words: str, cells: int = 2) -> RenderableType:
    return indented(Text(words), cells)
