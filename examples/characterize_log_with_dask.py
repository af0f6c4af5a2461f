"""Characterize a log of requests, one JSON object of arguments a line, with Dask.

Usage: characterize_log_with_dask.py LOG FOLDER [--scheduler ADDRESS | --workers N] [--block SIZE]

LOG may be a pattern and, like FOLDER, any place that fsspec knows; files named .gz or .zst are
decompressed. Every line of LOG gives one line in the parts of FOLDER, in the same order: what
`tavik-characterize batch` would answer to the file. FOLDER must be new or empty. The file
complete.json appears in it last and says which lines each part answers. The exit status is 1 when
there are bad lines, 2 when the job could not be done.
"""

import argparse
import gzip
import json
import logging
import sys
import zlib
from collections.abc import Iterator, Sequence
from itertools import batched
from typing import IO, Any, NamedTuple

import fsspec
from backports import zstd
from dask.base import compute
from dask.delayed import delayed
from dask.distributed import Client, KilledWorker
from dask.utils import parse_bytes

from tavik_agent.characterize.answer import Answerer
from tavik_agent.characterize.exchange import Block, Setting

OPENERS = {".gz": gzip.open, ".zst": zstd.open}
FAILURES = (OSError, EOFError, ValueError, ImportError, zlib.error, zstd.ZstdError, KilledWorker)
USAGE = "%(prog)s LOG FOLDER [--scheduler ADDRESS | --workers N] [--block SIZE]"
PIECES_A_WORKER = 4
SMALLEST, LARGEST = 2**18, 2**26
LINES_AT_ONCE = 2000


class Piece(NamedTuple):
    """The lines of a file that begin from one byte on and before another; of a compressed file all,
    since it cannot be cut."""

    file: Any  # an OpenFile of fsspec
    start: int
    end: float

    @property
    def opener(self) -> Any:
        return next((OPENERS[end] for end in OPENERS if self.file.path.endswith(end)), None)


def lines_of(piece: Piece) -> Iterator[bytes]:
    with piece.file as raw:
        file: IO[bytes] = piece.opener(raw) if piece.opener else raw
        position = 0
        if piece.start:
            file.seek(piece.start - 1)  # a line that begins at the start follows a line end
            position = piece.start - 1 + len(file.readline())
        while position < piece.end and (line := file.readline()):
            position += len(line)
            yield line


def pieces_of(files: Sequence[Any], size: int) -> Iterator[Piece]:
    for file in files:
        whole = Piece(file, 0, float("inf"))
        if whole.opener:
            yield whole
            continue
        length = file.fs.size(file.path)
        for start in range(0, max(length, 1), size):
            yield Piece(file, start, min(start + size, length))


def piece_size(files: Sequence[Any], workers: int) -> int:
    """A few pieces for each worker, neither too small for a task nor too long to do again."""
    length: int = sum(file.fs.size(file.path) for file in files)
    return min(max(length // (PIECES_A_WORKER * workers), SMALLEST), LARGEST)


def count_lines(piece: Piece) -> int:
    return sum(1 for _ in lines_of(piece))


def answer_piece(piece: Piece, first: int, target: str) -> dict[str, Any]:
    """Write the answers to the lines of a piece; return what the part holds."""
    answerer = Answerer(Setting(piece.file.path))
    lines = errors = 0
    with fsspec.open(target, "wb") as out:
        for some in batched(lines_of(piece), LINES_AT_ONCE, strict=False):
            answered = answerer.block(Block(first + lines, b"".join(some)))
            out.write(answered.data)
            lines += answered.lines
            errors += sum(answered.reports.errors.values())
    part = {"part": target.rpartition("/")[2], "file": piece.file.path, "first_line": first}
    return part | {"lines": lines, "errors": errors}


def characterize_log(log: str, folder: str, size: int | None, workers: int) -> list[dict[str, Any]]:
    """Run the job on the current cluster; each piece of the log makes one part of the folder."""
    files = fsspec.open_files(log, "rb")
    if not files:
        raise FileNotFoundError(f"{log}: no such file")
    pieces = [*pieces_of(files, size or piece_size(files, workers))]
    make_empty(folder)
    numbers = first_lines(pieces, compute(*(delayed(count_lines)(piece) for piece in pieces)))
    write = delayed(answer_piece)
    parts: list[dict[str, Any]] = [
        *compute(
            *(
                write(piece, first, f"{folder}/{number:06}.jsonl")
                for number, (piece, first) in enumerate(zip(pieces, numbers, strict=True))
            )
        )
    ]
    with fsspec.open(f"{folder}/complete.json", "w", encoding="utf-8") as mark:
        json.dump({"parts": parts}, mark, indent=1)
    return parts


def make_empty(folder: str) -> None:
    fs, path = fsspec.core.url_to_fs(folder)
    if fs.exists(path) and (fs.isfile(path) or fs.ls(path)):
        raise FileExistsError(f"{folder}: expected a new or empty folder")
    fs.makedirs(path, exist_ok=True)


def first_lines(pieces: Sequence[Piece], counts: Sequence[int]) -> Iterator[int]:
    """The number, within its file, of the first line of each piece."""
    number = 1
    for piece, count in zip(pieces, counts, strict=True):
        number = number if piece.start else 1
        yield number
        number += count


def main() -> int:
    parser = argparse.ArgumentParser(usage=USAGE)
    parser.add_argument("log")
    parser.add_argument("folder")
    parser.add_argument("--scheduler", help="address of a running cluster")
    parser.add_argument("--workers", type=int, default=2, help="processes without a cluster")
    parser.add_argument("--block", type=parse_bytes, help="how much of a file one task takes")
    args = parser.parse_args()
    if args.workers < 1 or (args.block is not None and args.block < 1):
        parser.error("expected at least one worker, and at least one byte a block")
    logging.getLogger("distributed").setLevel(logging.CRITICAL)
    local = {"n_workers": args.workers, "threads_per_worker": 1, "dashboard_address": None}
    local["silence_logs"] = logging.CRITICAL
    try:
        with Client(args.scheduler) if args.scheduler else Client(**local) as client:
            workers = len(client.scheduler_info()["workers"])
            parts = characterize_log(args.log, args.folder, args.block, workers)
    except FAILURES as error:
        print(f"{parser.prog}: {error}", file=sys.stderr)
        return 2
    except KeyboardInterrupt:
        print(f"{parser.prog}: interrupted", file=sys.stderr)
        return 130
    lines, errors = (sum(part[key] for part in parts) for key in ("lines", "errors"))
    print(f"{lines} lines in {len(parts)} parts on {workers} workers, {errors} errors")
    return 1 if errors else 0


if __name__ == "__main__":
    sys.exit(main())
