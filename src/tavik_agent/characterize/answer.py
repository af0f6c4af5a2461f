"""Requests answered, a line of JSON each: with the record, or with an error object that says what
is wrong with the line. What is wrong is counted by kind, and the first few of a kind are told.
"""

from collections import Counter
from typing import Any

import msgspec

from .files import InputError, json_bytes
from .request import RequestDecoder, characterize

TOLD_OF_A_KIND = 3


class Troubles(msgspec.Struct):
    """What was wrong with requests: how often, by kind, and the first messages of each kind."""

    errors: dict[str, int] = {}
    warnings: dict[str, int] = {}
    told: list[tuple[str, str]] = []  # kind and message

    def note(self, counts: dict[str, int], kind: str, message: str) -> None:
        counts[kind] = counts.get(kind, 0) + 1
        if counts[kind] <= TOLD_OF_A_KIND:
            self.told.append((kind, message))

    def add(self, later: "Troubles") -> list[str]:
        """Counts those of the lines that follow; returns the messages still to be told."""
        sofar = self.errors | self.warnings
        self.errors = {**(Counter(self.errors) + Counter(later.errors))}
        self.warnings = {**(Counter(self.warnings) + Counter(later.warnings))}
        told = []
        for kind, message in later.told:
            sofar[kind] = sofar.get(kind, 0) + 1
            if sofar[kind] <= TOLD_OF_A_KIND:
                told.append(message)
        return told


class Answerer:
    """Answers the lines of one place; the kept entries of a request go in front of its answer."""

    def __init__(self, place: str, kept: tuple[str, ...] = ()) -> None:
        self._place = place
        self._requests = RequestDecoder(kept)

    def block(self, lines: list[bytes], first: int, troubles: Troubles) -> bytes:
        """The answers to lines without their ends, of which the first has that number."""
        answers = [self.line(line, first + i, troubles) for i, line in enumerate(lines)]
        return b"\n".join([*answers, b""])

    def line(self, line: bytes, number: int, troubles: Troubles) -> bytes:
        """The answer to a line, without a line end."""
        try:
            arguments, kept = self._requests.decode(line, self._place, number)
            if slips := self._requests.slips(arguments):
                for slip in slips:
                    message = f"{self._place}:{number}: warning: {slip}"
                    troubles.note(troubles.warnings, f"warning: {slip}", message)
            record = characterize(arguments, self._place, number)
            if kept:
                record = {name: record[name] for name in record if name not in self._requests.kept}
            answer = encoded(record, self._place, number)
        except InputError as error:
            troubles.note(troubles.errors, error.kind, str(error))
            report = {"line": number, "kind": error.kind, "message": error.what}
            kept = self._requests.kept_of_bad(line)
            answer = encoded({"error": report}, self._place, number)
        return b"{" + kept + b"," + answer[1:] if kept else answer


def encoded(value: Any, place: str, number: int) -> bytes:
    try:
        return msgspec.json.encode(value)
    except (UnicodeEncodeError, OverflowError, RecursionError):
        # Lone surrogates and integers of any length are for Python's own encoder.
        return json_bytes(value, f"{place}:{number}").rstrip()
