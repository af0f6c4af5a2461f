"""Reads a run: the records and errors that batch wrote a line, with the kept entries in front."""

from collections.abc import Iterator
from itertools import takewhile
from typing import Any, NamedTuple, get_type_hints

import msgspec
from tavik_agent.characterization_types import CharacterizationRecord

from .files import InputError, input_place, parse_json, read_lines
from .request import ARGUMENTS

FIELDS = get_type_hints(CharacterizationRecord)
ACCOUNT = ("evidence", "confidence")  # say how the labels were reached
LONGEST_TEXT = 300


class Answer(NamedTuple):
    number: int  # of its line
    kept: dict[str, Any]
    record: dict[str, Any]  # without the kept entries; empty for an error
    failure: str  # why there is no record
    kind: str  # what failures are counted by

    @property
    def identity(self) -> str | None:
        """The kept entry that names the request: the first that is none of its arguments."""
        return next((key for key in self.kept if key not in ARGUMENTS), None)

    @property
    def text(self) -> str:
        return _text(self.kept)


def read_run(path: str) -> Iterator[Answer]:
    place = input_place(path)
    for number, line in enumerate(read_lines(path), 1):
        value = _decoded(line, place, number)
        answer = _answer(number, value) if isinstance(value, dict) else None
        if answer is None:
            raise InputError(f"{place}:{number}", "expected a record or an error object")
        yield answer


def _decoded(line: bytes, place: str, number: int) -> Any:
    try:
        return msgspec.json.decode(line)
    except (msgspec.DecodeError, UnicodeDecodeError, RecursionError):
        # Python's own decoder takes lone surrogates, and says where JSON is wrong.
        return parse_json(line.rstrip(b"\r\n"), place, number)


def _answer(number: int, value: dict[str, Any]) -> Answer | None:
    in_front = takewhile(lambda key: key not in FIELDS and key != "error", value)
    kept = {key: value[key] for key in in_front}
    record = {key: entry for key, entry in value.items() if key not in kept} if kept else value
    match record:
        case {"error": {"message": str(why)}} if len(record) == 1:
            return Answer(number, kept, {}, why, str(record["error"].get("kind") or why))
    return Answer(number, kept, record, "", "") if all(key in record for key in ACCOUNT) else None


def read_texts(path: str) -> Iterator[str]:
    """The text of each request of a file; nothing for a line that cannot be read."""
    for number, line in enumerate(read_lines(path), 1):
        try:
            yield _text(_decoded(line, input_place(path), number))
        except InputError:
            yield ""


def _text(request: Any) -> str:
    text = request.get("query_text") if isinstance(request, dict) else None
    return text if isinstance(text, str) else ""


def shortened(text: str) -> str:
    return text if len(text) <= LONGEST_TEXT else f"{text[:LONGEST_TEXT]}…"
