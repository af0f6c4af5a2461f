"""The commands that work on files of requests and records."""

import click

from . import NAME
from .batch import answer_all


@click.command()
@click.argument("source", metavar="IN.jsonl")
@click.option(
    "-o",
    "--output",
    "target",
    metavar="OUT.jsonl",
    default="-",
    help="A new file; standard output when left out.",
)
@click.option("--resume", is_flag=True, help="Go on after the whole lines that OUT.jsonl holds.")
def batch(source: str, target: str, resume: bool) -> int:
    """Answer the requests in IN.jsonl, a JSON object a line, with a record a line.

    A line that is no request is answered with an error object, {"error": {"line": ..., "message":
    ...}}, and reported on standard error; the exit status is then 1. "-" is a standard stream.
    """
    if resume and target == "-":
        raise click.UsageError("--resume goes with -o OUT.jsonl")
    tally = answer_all(source, target, resume=resume)
    if tally.bad:
        click.echo(f"{NAME}: {tally.bad} of {tally.lines} lines are bad", err=True)
    return 1 if tally.bad else 0
