"""Requests answered, a line of JSON each: with the record, or with an error object that says what is
wrong with the line. What was wrong is counted by kind, and the first few of a kind are told.
"""

from collections import Counter
from dataclasses import dataclass, field
from typing import Any

import msgspec

from .files import InputError, json_bytes
from .request import characterize, decode_request, slips

TOLD_OF_A_KIND = 3


@dataclass
class Troubles:
    """What was wrong with requests: how often, by kind, and the first messages of each kind."""

    errors: Counter[str] = field(default_factory=Counter)
    warnings: Counter[str] = field(default_factory=Counter)
    told: list[str] = field(default_factory=list)

    def note(self, counts: Counter[str], kind: str, message: str) -> None:
        counts[kind] += 1
        if counts[kind] <= TOLD_OF_A_KIND:
            self.told.append(message)


def answer_line(line: bytes, place: str, number: int, troubles: Troubles) -> bytes:
    """The answer to that line of the place, with its line end."""
    try:
        arguments = decode_request(line.rstrip(b"\r\n"), place, number)
        for slip in slips(arguments):
            troubles.note(troubles.warnings, slip, f"{place}:{number}: warning: {slip}")
        return encoded(characterize(arguments, f"{place}:{number}"), f"{place}:{number}")
    except InputError as error:
        troubles.note(troubles.errors, error.kind, str(error))
        report = {"line": number, "kind": error.kind, "message": error.what}
        return encoded({"error": report}, "")


def encoded(value: Any, place: str) -> bytes:
    try:
        return msgspec.json.encode(value) + b"\n"
    except (UnicodeEncodeError, OverflowError, RecursionError):
        return json_bytes(value, place)  # lone surrogates, integers of any length
