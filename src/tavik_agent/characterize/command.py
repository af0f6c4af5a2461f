"""The command line: a request, unless the first word is the name of another command."""

import os
import sys
from collections.abc import Sequence
from io import TextIOWrapper

import click

from . import FAILURE, NAME
from .file_commands import batch, compare_runs
from .files import InputError, input_errors_at
from .lookup_command import lookup
from .request_commands import explain, show

COMMANDS = {"explain": explain, "lookup": lookup, "batch": batch, "compare": compare_runs}


def run(words: Sequence[str]) -> int:
    """Runs the command line and returns its exit status; an input error is reported in one line."""
    if isinstance(sys.stdout, TextIOWrapper):
        sys.stdout.reconfigure(errors="backslashreplace")
    command, name, rest = show, NAME, [*words]
    if rest and rest[0] in COMMANDS:
        command, name = COMMANDS[rest[0]], f"{NAME} {rest.pop(0)}"
    try:
        with input_errors_at("standard output"), command.make_context(name, rest) as context:
            status: int = command.invoke(context)
            sys.stdout.flush()
            return status
    except click.exceptions.Exit as done:
        return done.exit_code
    except (InputError, click.ClickException, RecursionError) as error:
        what = error.format_message() if isinstance(error, click.ClickException) else error
        click.echo(f"{name}: {what}", err=True)
    finally:
        _abandon_failed_output()
    return FAILURE


def _abandon_failed_output() -> None:
    """Keeps Python from trying again, when it ends, to write what could not be written."""
    try:
        sys.stdout.flush()
    except OSError:
        os.dup2(os.open(os.devnull, os.O_WRONLY), sys.stdout.fileno())
