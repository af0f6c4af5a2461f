"""The output of a batch appears under its name when it is complete. Until then the work stands in
NAME.part, and NAME.part.progress has a line for each block: how much was read and written so far.
A lock on that file keeps a second writer out. A file of anybody else is never touched.
"""

import os
import zlib
from collections.abc import Iterator
from contextlib import contextmanager
from io import FileIO
from typing import Protocol

import msgspec

from .exchange import Reports
from .files import InputError, input_errors_at

try:
    import fcntl
except ImportError:  # Windows, where nothing keeps a second writer out
    fcntl = None  # type: ignore[assignment]


class Run(msgspec.Struct, forbid_unknown_fields=True, tag="tavik-characterize batch"):
    """The first line of the progress: what decides the bytes of the output, beside the requests."""

    keep: list[str]
    tables: int


class Progress(msgspec.Struct, forbid_unknown_fields=True):
    """How far a run has come."""

    lines: int = 0
    read: int = 0
    input: int = 0  # checksum of what was read
    written: int = 0
    output: int = 0  # checksum of what was written
    reports: Reports = msgspec.field(default_factory=Reports)


class Output(Protocol):
    progress: Progress

    def write(self, data: bytes) -> None: ...
    def save(self) -> None:
        """Writes down the progress: all before it need not be done again."""


class Stream:
    """An output that cannot be gone on with: a pipe, a device, whatever the shell opened."""

    def __init__(self, file: FileIO, name: str) -> None:
        self.progress = Progress()
        self._file = file
        self._name = name

    def write(self, data: bytes) -> None:
        with input_errors_at(self._name):
            _write(self._file, data)

    def save(self) -> None:
        pass


class Part:
    """The output so far. What stands in it after the last progress of an earlier run has to be the
    beginning of what is written now.
    """

    def __init__(self, file: FileIO, log: FileIO, name: str) -> None:
        self.progress, self._log_end = _progress(file, log)
        self._file = file
        self._log = log
        self._name = name
        self._old = os.fstat(file.fileno()).st_size

    def write(self, data: bytes) -> None:
        now = self.progress
        with input_errors_at(self._name):
            self._file.seek(now.written)
            there = self._file.read(len(data)) if now.written < self._old else b""
            if not data.startswith(there):
                raise _foreign_part(self._name)
            _write(self._file, data[len(there) :])
        now.written += len(data)
        now.output = zlib.crc32(data, now.output)

    def save(self) -> None:
        with input_errors_at(self._name):
            self._log.truncate(self._log_end)
            line = msgspec.json.encode(self.progress) + b"\n"
            _write(self._log, line)
            self._log_end += len(line)

    def close(self) -> None:
        """Makes sure that the whole output is on the disk, and nothing else is in it."""
        if self.progress.written < self._old:
            raise _foreign_part(self._name)
        with input_errors_at(self._name):
            os.fsync(self._file.fileno())
        self._file.close()


def _write(file: FileIO, data: bytes) -> None:
    view = memoryview(data)
    while view:
        view = view[file.write(view) :]


def _foreign_part(name: str) -> InputError:
    what = "expected what the earlier run wrote; move it away to start again"
    return InputError(name, what, kind="foreign")


@contextmanager
def part_of(target: str, run: Run, *, resume: bool) -> Iterator[Part]:
    """The part of that output, a new one or that of an earlier run; at the end it is the output."""
    name, log_name = f"{target}.part", f"{target}.part.progress"
    with input_errors_at(target):
        _refuse_existing(target)
        with FileIO(log_name, "ab+") as log:
            _lock(log, log_name, target)
            with _opened_part(name, log, log_name, run, resume=resume) as file:
                part = Part(file, log, name)
                try:
                    yield part
                    part.close()
                except BaseException as error:
                    if os.path.getsize(name):
                        raise _how_to_go_on(error, part.progress.lines) from None
                    os.unlink(name)
                    _remove(log, log_name)
                    raise
            _publish(name, target)
            _remove(log, log_name)


def _how_to_go_on(error: BaseException, lines: int) -> BaseException:
    more = f"; --resume goes on after {lines:,} lines"
    match error:
        case InputError(kind=""):
            return InputError(error.place, error.what + more)
        case KeyboardInterrupt():
            return KeyboardInterrupt(more)
    return error


def _refuse_existing(target: str) -> None:
    if os.path.lexists(target):
        raise InputError(target, "expected a new file")


def _lock(log: FileIO, log_name: str, target: str) -> None:
    if fcntl is not None:
        try:
            fcntl.flock(log, fcntl.LOCK_EX | fcntl.LOCK_NB)
        except BlockingIOError:
            raise InputError(target, "another run is writing it") from None
        state = os.fstat(log.fileno())
        if not state.st_nlink or not os.path.samestat(state, os.stat(log_name)):
            raise InputError(target, "another run has just written it")
    try:
        _refuse_existing(target)
    except InputError:
        if not os.fstat(log.fileno()).st_size:
            _remove(log, log_name)
        raise


def _opened_part(name: str, log: FileIO, log_name: str, run: Run, *, resume: bool) -> FileIO:
    log.seek(0)
    written = log.readall() or b""
    header = _decoded(written.partition(b"\n")[0], Run)
    if written and header is None:
        raise InputError(log_name, "expected the progress of an earlier run; move it away")
    if not os.path.lexists(name):
        log.truncate(0)
        _write(log, msgspec.json.encode(run) + b"\n")
        return FileIO(name, "xb+")
    if header is None:
        _remove(log, log_name)
        raise InputError(name, "expected no such file; no earlier run wrote it")
    if not resume:
        raise InputError(name, "expected no unfinished run; --resume goes on with it")
    if header != run:
        what = (
            "expected a run with the same --keep and the same tables; move it away to start again"
        )
        raise InputError(name, what)
    return FileIO(name, "rb+")


def _progress(file: FileIO, log: FileIO) -> tuple[Progress, int]:
    """The last progress up to which the part holds what was written, and where its line ends."""
    log.seek(0)
    header, *lines = (log.readall() or b"").splitlines(keepends=True)
    known, end, checksum = Progress(), len(header), 0
    for line in lines:
        later = _decoded(line, Progress)
        if later is None:
            break
        checksum = zlib.crc32(file.read(later.written - known.written), checksum)
        if checksum != later.output:
            break
        known, end = later, end + len(line)
    return known, end


def _decoded[T](line: bytes, kind: type[T]) -> T | None:
    try:
        return msgspec.json.decode(line, type=kind)
    except (msgspec.DecodeError, UnicodeDecodeError):
        return None


def _publish(name: str, target: str) -> None:
    try:
        os.link(name, target)
    except FileExistsError:
        raise InputError(target, f"expected a new file; the records are in {name}") from None
    except OSError:  # a file system without links
        _refuse_existing(target)
        os.rename(name, target)
    else:
        os.unlink(name)


def _remove(log: FileIO, log_name: str) -> None:
    if fcntl is None:  # Windows removes no open file
        log.close()
    os.unlink(log_name)
