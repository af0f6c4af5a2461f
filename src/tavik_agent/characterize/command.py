"""The command line: a request, unless the first word is the name of another command."""

import os
import sys
from collections.abc import Sequence
from importlib import import_module
from io import TextIOWrapper

import click

from . import FAILURE, NAME
from .files import InputError, input_errors_at

# Where each command stands: a command imports what it needs, and no other.
REQUEST = "request_commands:show"
COMMANDS = {"batch": "file_commands:batch", "compare": "file_commands:compare_runs"}


def run(words: Sequence[str]) -> int:
    """Runs the command line and returns its exit status; an input error is reported in one line."""
    if isinstance(sys.stdout, TextIOWrapper):
        sys.stdout.reconfigure(errors="backslashreplace")
    place, name, rest = REQUEST, NAME, [*words]
    if rest and rest[0] in COMMANDS:
        place, name = COMMANDS[rest[0]], f"{NAME} {rest.pop(0)}"
    command = command_at(place)
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


def command_at(place: str) -> click.Command:
    module, _, name = place.partition(":")
    command: click.Command = getattr(import_module(f"{__package__}.{module}"), name)
    return command


def _abandon_failed_output() -> None:
    """Keeps Python from trying again, when it ends, to write what could not be written."""
    try:
        sys.stdout.flush()
    except OSError:
        os.dup2(os.open(os.devnull, os.O_WRONLY), sys.stdout.fileno())
