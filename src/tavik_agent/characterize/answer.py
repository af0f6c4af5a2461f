"""Requests answered, a line of JSON each: with the record, or with an error object that says what
is wrong with the line. What is wrong is counted by kind, and the first few of a kind are reported.
"""

from typing import Any

import msgspec

from .exchange import Answered, Block, Reports, Setting
from .files import InputError, compressed, json_bytes
from .request import RequestDecoder, characterize


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
    except (UnicodeEncodeError, RecursionError):  # lone surrogates are for Python's own encoder
        return json_bytes(value, f"{place}:{number}").rstrip()
