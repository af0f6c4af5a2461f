"""The commands that take one request: what is typed, a file, or both."""

import re
import sys
from collections.abc import Callable
from typing import Any, Literal, get_args, get_origin, get_type_hints

import click
from tavik_agent.characterization_types import EnergyUnit, QueryIntent
from tavik_agent.material_reference_data import KNOWN_ELEMENT_SYMBOLS

from tavik_agent.explanation import explain as explain_request

from . import NAME, PACKAGE
from .explain_screen import explanation_parts
from .files import InputError, input_place, json_bytes, read_bytes, read_json
from .report import report
from .request import characterize, check, decode_request, slips
from .screen import show_record
from .terminal import console_for_output, written
from .terminal import show as show_parts

INTENT_OPTIONS = {
    "formula": ("--formula", "the formula"),
    "correlation": ("--correlation", "the treatment of correlation"),
    "magnetism": ("--magnetism", "the magnetic order"),
    "complexity_hint": ("--complexity", "the request is meant to be easy"),
    "units": ("--energy-unit", "the unit of energies"),
    "structure_description": ("--structure", "the structure in words"),
}
INTENT_TYPES = get_type_hints(QueryIntent) | {"units": EnergyUnit}


def _intent_options(command: Callable[..., int]) -> Callable[..., int]:
    for key, (option, help_text) in reversed(INTENT_OPTIONS.items()):
        words = _words(INTENT_TYPES[key])
        command = click.option(
            option,
            key,
            type=click.Choice(words, case_sensitive=False) if words else str,
            metavar="WORD" if words else "TEXT",
            help=f"Intent: {help_text}{': ' if words else ''}{', '.join(words)}.",
        )(command)
    return command


def _words(hint: Any) -> list[str]:
    """The words of a type that is a closed set, or such a set or None; empty for any other type."""
    sets = [part for part in (hint, *get_args(hint)) if get_origin(part) is Literal]
    return [word for part in sets for word in get_args(part) if word]


def _request_options(command: Callable[..., int]) -> Callable[..., int]:
    """What the commands of one request take."""
    for option in (
        click.option(
            "--base", metavar="FILE", help="An earlier record, to merge the new one into."
        ),
        click.option(
            "--finding",
            "findings",
            metavar="TEXT",
            multiple=True,
            help="A finding; may be repeated.",
        ),
        _intent_options,
        click.option("--species", metavar="LIST", help='The step\'s elements, as "Fe,O".'),
        click.option("--step", metavar="NAME", help="The planning step."),
        click.option("--request", "file", metavar="FILE", help="All arguments, as a JSON object."),
        click.argument("query", nargs=-1),
    ):
        command = option(command)
    return command


@click.command(
    epilog=f"""\b
Other commands; a QUERY that begins with such a word or with "-" goes behind "--":
  {NAME} explain  show in full why each label was given
  {NAME} lookup   show how a name, a formula or an abbreviation is read
  {NAME} batch    answer a file of requests
  {NAME} compare  show which labels changed between two runs
  {NAME} summary  sum up a run: labels, undecided fields, errors
  {NAME} schema   print the JSON Schema of a request, an intent or a record

\b
Completion of words, in bash (or zsh, fish):
  eval "$(_TAVIK_CHARACTERIZE_COMPLETE=bash_source {NAME})"
"""
)
@_request_options
@click.version_option(package_name=PACKAGE, prog_name=NAME, message="%(prog)s %(version)s")
@click.option("--json", "as_json", is_flag=True, help="Print the record as JSON.")
def show(as_json: bool, **typed: Any) -> int:
    """Characterize the request QUERY and show its record, and why each label was given.

    What is typed replaces the same entry of the request in FILE. "-" is standard input.
    """
    arguments, place = _request(**typed)
    record = characterize(arguments, place)
    if as_json:
        sys.stdout.buffer.write(json_bytes(record, place, indent=True))
    else:
        show_record(console_for_output(), explain_request(**arguments), arguments)
    return 0


@click.command()
@_request_options
@click.option("--json", "as_json", is_flag=True, help="Print the explanation as JSON.")
@click.option("--html", "page_file", metavar="FILE", help="Write the screen as a page.")
def explain(as_json: bool, page_file: str | None, **typed: Any) -> int:
    """Show in full why the request QUERY gets its labels, and which it would get otherwise.

    What is typed replaces the same entry of the request in FILE. "-" is standard input.
    """
    if as_json and page_file == "-":
        raise click.UsageError("standard output can be only one of --json and --html")
    arguments, place = _request(**typed)
    characterize(arguments, place)  # reports what is wrong with the values
    explanation = explain_request(**arguments)
    parts = [*explanation_parts(arguments, explanation)]
    if page_file is not None:
        report(written(arguments.get("query_text") or NAME), parts, page_file)
    if as_json:
        sys.stdout.buffer.write(json_bytes(explanation, place, indent=True))
    elif page_file is None:
        show_parts(console_for_output(), parts)
    return 0


def _request(query: tuple[str, ...], file: str | None, **typed: Any) -> tuple[dict[str, Any], str]:
    """The arguments of the call, and where they come from."""
    if file == typed["base"] == "-":
        raise click.UsageError("standard input can be only one of --request and --base")
    typed_arguments = _arguments(" ".join(query), **typed)
    if file is None and not typed_arguments:
        raise click.UsageError("expected a request in words or --request FILE; see --help")
    place = "the request" if file is None else input_place(file)
    given = {"step": ""} if file is None else decode_request(read_bytes(file), place)
    arguments = _replaced(given, typed_arguments)
    for slip in slips(arguments.get("query_intent") or ()):
        click.echo(f"{place}: warning: {slip}", err=True)
    return arguments, place


def _arguments(
    query: str,
    step: str | None,
    species: str | None,
    findings: tuple[str, ...],
    base: str | None,
    units: str | None,
    **intent: str | None,
) -> dict[str, Any]:
    """The arguments that were typed, and no others."""
    symbols = re.findall(r"[^,\s]+", species or "")
    if wrong := [symbol for symbol in symbols if symbol.capitalize() not in KNOWN_ELEMENT_SYMBOLS]:
        raise click.UsageError(f'--species: expected symbols, as "Fe,O", not {wrong[0]!r}')
    typed = {
        "step": step,
        "step_params": {"element": [{"species": symbol} for symbol in symbols]} if symbols else {},
        "query_text": query,
        "findings": [*findings],
        "base_characterization": {} if base is None else _earlier_record(base),
        "query_intent": {key: text for key, text in intent.items() if text is not None}
        | ({"units": {"energy": units}} if units else {}),
    }
    return {name: value for name, value in typed.items() if value}


def _earlier_record(file: str) -> dict[str, Any]:
    record = read_json(file)
    given = check({"base_characterization": record}, input_place(file))
    if record and "confidence" not in record:
        raise InputError(input_place(file), "expected a record, which has a confidence")
    earlier: dict[str, Any] = given["base_characterization"]
    return earlier


def _replaced(given: dict[str, Any], typed: dict[str, Any]) -> dict[str, Any]:
    entries = {
        name: (given.get(name) or {}) | typed[name]
        for name in ("step_params", "query_intent")
        if name in typed
    }
    return given | typed | entries
