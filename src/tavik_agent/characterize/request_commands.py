"""The commands that take one request: what is typed, a file, or both."""

import re
import sys
from collections.abc import Callable
from typing import Any, Literal, get_args, get_origin, get_type_hints

import click
from tavik_agent.characterization_types import EnergyUnit, QueryIntent

from . import NAME, PACKAGE
from .files import input_place, json_bytes, read_bytes, read_json
from .request import characterize, check, decode_request, slips
from .screen import show_record
from .terminal import console_for_output

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


@click.command(
    epilog=f"""\b
Other commands; a QUERY that begins with such a word or with "-" goes behind "--":
  {NAME} batch    answer a file of requests
  {NAME} compare  show which labels changed between two runs
  {NAME} summary  sum up a run: labels, undecided fields, errors
  {NAME} schema   print the JSON Schema of a request, an intent or a record

\b
Completion of words, in bash (or zsh, fish):
  eval "$(_TAVIK_CHARACTERIZE_COMPLETE=bash_source {NAME})"
"""
)
@click.argument("query", nargs=-1)
@click.option("--request", "file", metavar="FILE", help="All arguments, as a JSON object.")
@click.option("--step", metavar="NAME", help="The planning step.")
@click.option("--species", metavar="LIST", help='The step\'s elements, as "Fe,O".')
@_intent_options
@click.option(
    "--finding", "findings", metavar="TEXT", multiple=True, help="A finding; may be repeated."
)
@click.option("--base", metavar="FILE", help="An earlier record, to merge the new one into.")
@click.version_option(package_name=PACKAGE, prog_name=NAME, message="%(prog)s %(version)s")
@click.option("--json", "as_json", is_flag=True, help="Print the record as JSON.")
def show(query: tuple[str, ...], file: str | None, as_json: bool, **typed: Any) -> int:
    """Characterize the request QUERY and show its record.

    What is typed replaces the same entry of the request in FILE. "-" is standard input.
    """
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
    record = characterize(arguments, place)
    if as_json:
        sys.stdout.buffer.write(json_bytes(record, place, indent=True))
    else:
        show_record(console_for_output(), record, arguments.get("query_text") or "")
    return 0


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
    if wrong := [symbol for symbol in symbols if not re.fullmatch("[A-Za-z]{1,3}", symbol)]:
        raise click.UsageError(f'--species: expected symbols, as "Fe,O", not {wrong[0]!r}')
    earlier = {} if base is None else {"base_characterization": read_json(base)}
    typed = {
        "step": step,
        "step_params": {"element": [{"species": symbol} for symbol in symbols]} if symbols else {},
        "query_text": query,
        "findings": [*findings],
        **check(earlier, input_place(base or "")),
        "query_intent": {key: text for key, text in intent.items() if text is not None}
        | ({"units": {"energy": units}} if units else {}),
    }
    return {name: value for name, value in typed.items() if value}


def _replaced(given: dict[str, Any], typed: dict[str, Any]) -> dict[str, Any]:
    entries = {
        name: (given.get(name) or {}) | typed[name]
        for name in ("step_params", "query_intent")
        if name in typed
    }
    return given | typed | entries
