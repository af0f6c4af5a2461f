"""The commands that show what is in runs: one summed up, two compared."""

import click

from .compare import compare, comparison_parts
from .report import report
from .summary import summarize, summary_parts

HTML = click.option(
    "--html", metavar="FILE", help='Write one page that needs nothing from outside; "-" prints it.'
)
BOTH_STANDARD_INPUT = "standard input can be only one of the files"


@click.command("summary")
@click.argument("run", metavar="RUN.jsonl")
@click.option(
    "--requests",
    metavar="IN.jsonl",
    help="The requests that RUN.jsonl answers, when it does not hold their texts.",
)
@HTML
def summary_of_run(run: str, requests: str | None, html: str | None) -> int:
    """Sum up the records in RUN.jsonl: labels, undecided fields, errors, confidence.

    The words of requests without species that look like formulas or names are listed too. That
    takes the texts of the requests: from --requests, or from a run of batch --keep query_text.
    """
    if run == requests == "-":
        raise click.UsageError(BOTH_STANDARD_INPUT)
    summary = summarize(run, requests)
    report(f"Summary of {run}", summary_parts(run, summary), html)
    return 0


@click.command("compare")
@click.argument("before", metavar="A.jsonl")
@click.argument("after", metavar="B.jsonl")
@click.option(
    "--requests",
    metavar="IN.jsonl",
    help="The requests that A.jsonl answers, for the texts of the examples.",
)
@click.option("--all", "all_examples", is_flag=True, help="All examples and all changes.")
@HTML
def compare_runs(
    before: str, after: str, requests: str | None, all_examples: bool, html: str | None
) -> int:
    """Show which labels changed from A.jsonl to B.jsonl, counted by field, then examples.

    Answers of two lines are compared when the same entry stands in front of both (an id, from batch
    --keep id), else line by line. Texts come from batch --keep query_text or from --requests. Exit
    status 0 when no label changed, 1 when some did or a line has no counterpart.
    """
    if [before, after, requests].count("-") > 1:
        raise click.UsageError(BOTH_STANDARD_INPUT)
    found = compare(before, after, all_examples=all_examples)
    parts = comparison_parts(found, requests=requests, all_examples=all_examples)
    report(f"{before} compared with {after}", parts, html)
    return 0 if found.same else 1
