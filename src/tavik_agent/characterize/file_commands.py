"""The commands that work on files of requests and records."""

import os
from typing import get_type_hints

import click
from tavik_agent.characterization_types import CharacterizationRecord

from . import NAME
from .batch import answer_all
from .decoder import UNKNOWN_ENTRY


@click.command()
@click.argument("source", metavar="IN", type=click.Path(readable=False))
@click.option(
    "-o",
    "--output",
    "target",
    metavar="OUT",
    type=click.Path(readable=False),
    default="-",
    help="A new file, complete when it appears; standard output when left out.",
)
@click.option("--resume", is_flag=True, help="Go on with the unfinished run of OUT.part.")
@click.option(
    "--keep",
    metavar="KEY",
    multiple=True,
    help="Copy this entry of a request, an id say; may be repeated.",
)
@click.option("--jobs", metavar="N", type=click.IntRange(1), default=1, help="Use N processes.")
def batch(source: str, target: str, resume: bool, keep: tuple[str, ...], jobs: int) -> int:
    """Answer the requests in IN, a JSON object a line, with a record a line.

    A line that is no request is answered with an error object, {"error": {"line": ..., "kind":
    ..., "message": ...}}; the exit status is then 1. Files named .gz or .zst are compressed. "-" is
    a standard stream.
    """
    if resume and target == "-":
        raise click.UsageError("--resume goes with -o OUT")
    names = {*get_type_hints(CharacterizationRecord), "error"}
    if taken := [key for key in keep if key in names]:
        raise click.UsageError(f"--keep {taken[0]}: an answer has an entry of that name")
    if any(os.fsencode(key) != key.encode(errors="replace") for key in keep):
        raise click.UsageError("--keep: expected UTF-8")
    keep = tuple(dict.fromkeys(keep))
    done = answer_all(source, target, keep=keep, jobs=jobs, resume=resume)
    reports = done.reports
    if bad := sum(reports.errors.values()):
        click.echo(f"{NAME}: {bad:,} of {done.lines:,} lines are bad", err=True)
    for kind, times in (reports.errors | reports.warnings).items():
        hint = "; --keep KEY is for entries of your own" if kind == UNKNOWN_ENTRY else ""
        click.echo(f"{times:>9,}  {kind}{hint}", err=True)
    return 1 if bad else 0
