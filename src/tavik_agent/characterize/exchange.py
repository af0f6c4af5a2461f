"""What is handed to those who answer requests, and what they give back; between processes as
messages through pipes, each behind its length. It imports no table, so that the process that only
hands out blocks is ready at once.
"""

from collections import Counter
from collections.abc import Callable, Iterable, Iterator
from typing import IO, Any

import msgspec

REPORTED_OF_A_KIND = 3
LENGTH = 8  # bytes of the length in front of a message


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


type Answering = Callable[[Iterable[Block]], Iterator[tuple[Block, Answered]]]


def send(pipe: IO[bytes] | None, message: Any) -> None:
    assert pipe is not None
    data = msgspec.msgpack.encode(message)
    pipe.write(len(data).to_bytes(LENGTH) + data)
    pipe.flush()


def received(pipe: IO[bytes] | None) -> bytes:
    """The next message, empty when there is none any more."""
    assert pipe is not None
    length = int.from_bytes(pipe.read(LENGTH))
    data = pipe.read(length)
    return data if len(data) == length else b""
