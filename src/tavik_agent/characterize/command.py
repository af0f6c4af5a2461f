"""The command line: a request, unless the first word is the name of another command, or so near one
that it must be a slip.
"""

import os
import sys
from collections.abc import Sequence
from difflib import get_close_matches
from importlib import import_module
from io import TextIOWrapper

import click
from click.shell_completion import shell_complete

from . import FAILURE, NAME
from .files import InputError, input_errors_at

# Where each command stands: a command imports what it needs, and no other.
REQUEST = "request_commands:show"
COMMANDS = {
    "explain": "request_commands:explain",
    "lookup": "lookup_command:lookup",
    "batch": "file_commands:batch",
    "compare": "run_commands:compare_runs",
    "schema": "schema:print_schema",
    "summary": "run_commands:summary_of_run",
}
COMPLETION = "_TAVIK_CHARACTERIZE_COMPLETE"  # set by the shell when it asks for completions
NEAR = 0.75  # how alike a word and a command are when one is taken for the other


def run(words: Sequence[str]) -> int:
    """Runs the command line and returns its exit status; an input error is reported in one line."""
    if isinstance(sys.stdout, TextIOWrapper):
        sys.stdout.reconfigure(errors="backslashreplace")
    if COMPLETION in os.environ:
        return shell_complete(_all_commands(), {}, NAME, COMPLETION, os.environ[COMPLETION])
    place, name, rest = REQUEST, NAME, [*words]
    if rest[:1] == ["help"] and all(word in COMMANDS for word in rest[1:2]):
        rest = [*rest[1:2], "--help"]
    if rest and rest[0] in COMMANDS:
        place, name = COMMANDS[rest[0]], f"{NAME} {rest.pop(0)}"
    try:
        if place == REQUEST:
            _refuse_slip(rest[:1])
        with input_errors_at("standard output"), _context(place, name, rest) as context:
            command = context.command
            status: int = command.invoke(context)
            sys.stdout.flush()
            return status
    except click.exceptions.Exit as done:
        return done.exit_code
    except (InputError, click.ClickException, RecursionError, MemoryError) as error:
        what = str(error) or "out of memory"
        if isinstance(error, click.ClickException):
            what = " ".join(error.format_message().split())  # in one line
        click.echo(f"{name}: {what}", err=True)
    finally:
        _abandon_failed_output()
    return FAILURE


def _context(place: str, name: str, words: list[str]) -> click.Context:
    return command_at(place).make_context(name, words, help_option_names=["-h", "--help"])


def _refuse_slip(words: Sequence[str]) -> None:
    for word in words:
        for command in get_close_matches(word, COMMANDS, 1, NEAR):
            what = f"no command {word!r}; did you mean {command}? A query goes behind --"
            raise click.UsageError(what)


def _all_commands() -> click.Group:
    """All commands as one, for the completion of words."""
    commands = {name: command_at(place) for name, place in COMMANDS.items()}
    options = [p for p in command_at(REQUEST).params if isinstance(p, click.Option)]
    return click.Group(NAME, commands, params=options)


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
