"""Reads and writes the files named on the command line, "-" being a standard stream. What is wrong
in one is reported in one line that names the place.
"""

import codecs
import gzip
import io
import json
import math
import os
import sys
import zlib
from collections.abc import Iterator
from contextlib import contextmanager
from pathlib import Path
from typing import Any

from backports import zstd

COMPRESSED = (".gz", ".zst")
GZIP_LEVEL = 6
TOO_DEEP = "expected JSON that is nested less deeply"


class InputError(Exception):
    """What is wrong with an input, or with a file that is read or written, and where."""

    def __init__(self, place: str, what: str, *, kind: str = "") -> None:
        super().__init__(f"{place}: {what}")
        self.place = place
        self.what = what
        self.kind = kind  # what errors are counted by


@contextmanager
def input_errors_at(place: str) -> Iterator[None]:
    """Turns a failure to read or write there into an InputError."""
    try:
        yield
    except (OSError, EOFError, zlib.error, zstd.ZstdError) as error:
        what = error.strerror if isinstance(error, OSError) else None
        raise InputError(place, what or str(error)) from error


def input_place(path: str) -> str:
    """How messages name an input; a name that is not UTF-8 is escaped."""
    name = os.fsencode(path).decode("utf-8", "backslashreplace")
    return "standard input" if path == "-" else name


def read_lines(path: str) -> Iterator[bytes]:
    """The lines of a file, with their ends, as they come in; .gz and .zst are decompressed."""
    with input_errors_at(input_place(path)), opened(path) as file:
        yield from file


def opened(path: str) -> io.BufferedIOBase:
    """The file for reading; what a compressed one holds."""
    if path == "-":
        return open(sys.stdin.fileno(), "rb", closefd=False)
    match Path(path).suffix:
        case ".gz":
            return gzip.open(path)
        case ".zst":
            return zstd.open(path)
    return open(path, "rb")


def compressed(data: bytes, suffix: str) -> bytes:
    """The data as a file with that suffix holds them; the pieces of a file may be joined."""
    match suffix:
        case ".gz":
            return gzip.compress(data, GZIP_LEVEL, mtime=0)
        case ".zst":
            return zstd.compress(data)
    return data


def write_file(path: str, data: bytes) -> None:
    """Writes a file, which appears under its name when it is complete."""
    if path == "-":
        sys.stdout.buffer.write(data)
        return
    part = f"{path}.part"
    with input_errors_at(part):
        file = open(part, "xb")  # noqa: SIM115
    try:
        with input_errors_at(part), file:
            file.write(data)
        with input_errors_at(path):
            os.replace(part, path)
    except BaseException:
        os.unlink(part)
        raise


def read_bytes(path: str) -> bytes:
    return b"".join(read_lines(path))


def read_json(path: str) -> Any:
    return parse_json(read_bytes(path), input_place(path))


def parse_json(data: bytes, place: str, first_line: int = 1) -> Any:
    """The value written in data, which begins on that line of the place."""
    try:
        text = data.removeprefix(codecs.BOM_UTF8).decode()
        return json.loads(text, parse_constant=_refused, parse_float=_finite)
    except UnicodeDecodeError as error:
        before = data[: error.start]
        line = first_line + before.count(b"\n")
        column = len(before) - before.rfind(b"\n")
        what = f"expected UTF-8, not the byte 0x{data[error.start]:02x}"
        raise InputError(f"{place}:{line}:{column}", what, kind="not UTF-8") from error
    except json.JSONDecodeError as error:
        at = f"{place}:{first_line + error.lineno - 1}:{error.colno}"
        raise InputError(at, f"invalid JSON: {error.msg}", kind="invalid JSON") from error
    except RecursionError as error:
        raise InputError(f"{place}:{first_line}", TOO_DEEP, kind="nested too deeply") from error
    except ValueError as error:  # a number that Python has no value for
        raise InputError(f"{place}:{first_line}", str(error), kind="invalid JSON") from error


def _refused(number: str) -> None:
    raise ValueError(f"invalid JSON: {number} is no number of JSON")


def _finite(number: str) -> float:
    if math.isinf(value := float(number)):
        raise ValueError(f"invalid JSON: {number} is out of range")
    return value


_encoder = json.JSONEncoder(ensure_ascii=False, allow_nan=False)
_indenting_encoder = json.JSONEncoder(ensure_ascii=False, allow_nan=False, indent=2)


def json_bytes(value: Any, place: str, *, indent: bool = False) -> bytes:
    """JSON in UTF-8, with its line end. A lone surrogate is written as JSON's escape for it."""
    try:
        text = (_indenting_encoder if indent else _encoder).encode(value)
    except RecursionError as error:
        raise InputError(place, TOO_DEEP) from error
    return text.encode("utf-8", "backslashreplace") + b"\n"
