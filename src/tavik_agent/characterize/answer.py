"""Requests answered, a line of JSON each: with the record, or with an error object that says what
is wrong with the line. What is wrong is counted by kind, and the first few of a kind are reported.
"""

from collections import Counter
from typing import Any

import msgspec

from .files import InputError, compressed, json_bytes, parse_json
from .request import RequestDecoder, characterize

REPORTED_OF_A_KIND = 3


class Reports(msgspec.Struct):
    """What was wrong with requests: how often, by kind, and the first messages of each kind."""

    errors: dict[str, int] = {}
    warnings: dict[str, int] = {}
    reported: list[tuple[str, str]] = []  # kind and message

    def note(self, counts: dict[str, int], kind: str, message: str) -> None:
        counts[kind] = counts.get(kind, 0) + 1
        if counts[kind] <= REPORTED_OF_A_KIND:
            self.reported.append((kind, message))

    def add(self, later: "Reports") -> list[str]:
        """Counts those of the lines that follow; returns the messages still to be reported."""
        sofar = self.errors | self.warnings
        self.errors = {**(Counter(self.errors) + Counter(later.errors))}
        self.warnings = {**(Counter(self.warnings) + Counter(later.warnings))}
        reported = []
        for kind, message in later.reported:
            sofar[kind] = sofar.get(kind, 0) + 1
            if sofar[kind] <= REPORTED_OF_A_KIND:
                reported.append(message)
        return reported


class Setting(msgspec.Struct):
    """What is the same for all requests; the suffix is that of the output."""

    place: str
    keep: list[str] = []
    suffix: str = ""


class Block(msgspec.Struct):
    """Lines of requests, of which the first has that number."""

    first: int
    data: bytes


class Answered(msgspec.Struct):
    """The output for a block."""

    data: bytes
    lines: int
    reports: Reports


class Answerer:
    """Answers the lines of one place; the kept entries of a request go in front of its answer."""

    def __init__(self, setting: Setting) -> None:
        self._place = setting.place
        self._suffix = setting.suffix
        self._requests = RequestDecoder(setting.keep)

    def block(self, block: Block) -> Answered:
        lines = block.data.split(b"\n")
        if not lines[-1]:
            lines.pop()
        reports = Reports()
        is_text, has_null = _is_text(block.data), b"null" in block.data
        answers: list[bytes] = []
        for number, line in enumerate(lines, block.first):
            answer = None
            if is_text and not (has_null and b"null" in line):
                answer = self._simply(line)
            answers.append(answer or self._thoroughly(line, number, reports))
        data = compressed(b"\n".join([*answers, b""]), self._suffix)
        return Answered(data, len(lines), reports)

    def _simply(self, line: bytes) -> bytes | None:
        """The answer to a request in which nothing needs care, in half the time; else none."""
        try:
            return _encode(self._requests.record_of_plain(line))
        except Exception:
            return None

    def _thoroughly(self, line: bytes, number: int, reports: Reports) -> bytes:
        kept: dict[str, Any] = {}
        try:
            arguments, kept, slips = self._requests.decode(line, self._place, number)
            for slip in slips:
                message = f"{self._place}:{number}: warning: {slip}"
                reports.note(reports.warnings, f"warning: {slip}", message)
            answer = characterize(arguments, self._place, number)
        except InputError as error:
            reports.note(reports.errors, error.kind, str(error))
            answer = {"error": {"line": number, "kind": error.kind, "message": error.what}}
            kept = kept or self._requests.kept_of_bad(line)
        return encoded({**kept, **answer, **kept}, self._place, number)


def _is_text(data: bytes) -> bool:
    try:
        return data.isascii() or bool(data.decode())
    except UnicodeDecodeError:
        return False


_encode = msgspec.json.Encoder().encode


def encoded(value: Any, place: str, number: int) -> bytes:
    try:
        return _encode(value)
    except (UnicodeEncodeError, OverflowError, RecursionError):
        # Lone surrogates and integers of any length are for Python's own encoder.
        entries = {key: _parsed(entry, place, number) for key, entry in value.items()}
        return json_bytes(entries, f"{place}:{number}").rstrip()


def _parsed(entry: Any, place: str, number: int) -> Any:
    is_raw = isinstance(entry, msgspec.Raw)
    return parse_json(bytes(entry), place, number) if is_raw else entry
