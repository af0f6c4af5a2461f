"""The blocks in which a file is read, answered and written: whole lines of some 1 MiB together,
so that memory is bounded. Where a file is cut follows from its bytes alone, never from how they
came in; but whoever writes requests to a pipe gets each answer at once, from one process.
"""

import io
import os
import stat
import sys
import zlib
from collections.abc import Iterator
from contextlib import contextmanager

from .files import InputError, input_errors_at, input_place, opened

BLOCK = 1024 * 1024


class Source:
    """The requests, from where an earlier run stopped."""

    def __init__(self, file: io.BufferedIOBase, place: str) -> None:
        self.place = place
        self._file = file
        self._checksum = 0

    def skip(self, size: int, checksum: int) -> None:
        """Passes over what was answered before, when the source begins with it."""
        left = size
        with input_errors_at(self.place):
            while left and (piece := self._file.read(min(left, BLOCK))):
                self._checksum = zlib.crc32(piece, self._checksum)
                left -= len(piece)
        if left or self._checksum != checksum:
            what = f"expected to begin with the {size:,} bytes that are answered already"
            raise InputError(self.place, what, kind="another input")

    def checksum_with(self, block: bytes) -> int:
        """The checksum of what was skipped and of all blocks up to this one."""
        self._checksum = zlib.crc32(block, self._checksum)
        return self._checksum

    def blocks(self, *, at_once: bool) -> Iterator[bytes]:
        """Blocks that end with a line end, but for that of the last line."""
        rest = bytearray()
        searched = 0
        while more := self._read(at_once):
            rest += more
            while end := _end(rest, searched, at_once):
                yield bytes(rest[:end])
                del rest[:end]
                searched = 0
            searched = len(rest)
        if rest:
            yield bytes(rest)

    def _read(self, at_once: bool) -> bytes:
        with input_errors_at(self.place):
            return self._file.read1(BLOCK) if at_once else self._file.read(BLOCK)


def _end(rest: bytearray, searched: int, at_once: bool) -> int:
    if at_once:
        return rest.rfind(b"\n", searched) + 1
    return rest.find(b"\n", max(searched, BLOCK - 1)) + 1


@contextmanager
def source_of(path: str) -> Iterator[Source]:
    with input_errors_at(input_place(path)), opened(path) as file:
        yield Source(file, input_place(path))


def state_of(path: str) -> os.stat_result:
    """The state of the file of requests."""
    with input_errors_at(input_place(path)):
        return os.fstat(sys.stdin.fileno()) if path == "-" else os.stat(path)


def is_file(state: os.stat_result) -> bool:
    return stat.S_ISREG(state.st_mode)
