"""Answers a file of requests with a file of records, JSON lines both, line by line in order. Each
line is written in one piece, so that an interrupted run can be resumed after the last whole line.
"""

import os
import stat
import sys
from collections.abc import Generator, Iterator
from contextlib import closing, contextmanager
from io import FileIO
from typing import NamedTuple

from rich.console import Console
from rich.progress import BarColumn, Progress, TextColumn, TimeRemainingColumn

from .files import InputError, input_errors_at, input_place, json_bytes, read_lines
from .request import characterize, decode_request

ERROR_START = b'{"error": {"line": '
IN_EVERY_RECORD = b'"confidence": '
LINES_A_REFRESH = 500


class Tally(NamedTuple):
    lines: int
    bad: int


def answer_all(source: str, target: str, *, resume: bool) -> Tally:
    """Answers each request that the target has no answer to yet; counts all answers."""
    place = input_place(source)
    messages = Console(stderr=True, highlight=False, markup=False, emoji=False, soft_wrap=True)
    with _output(source, target, resume=resume) as output:
        answered, bad = _keep_whole_lines(output, target) if resume else Tally(0, 0)
        with_bar = messages.is_terminal and not output.isatty()
        number = 0
        with closing(_under_bar(source, messages) if with_bar else _numbered(source)) as requests:
            for number, line in requests:
                if number <= answered:
                    continue
                try:
                    answer = _answer(line, place, number)
                except InputError as error:
                    answer = _error(error, number)
                    bad += 1
                    messages.print(str(error))
                _write(output, answer)
        if number < answered:
            raise InputError(target, f"expected no more than the {number} lines of {place}")
    return Tally(number, bad)


def _answer(line: bytes, place: str, number: int) -> bytes:
    arguments = decode_request(line.rstrip(b"\r\n"), place, number)
    place = f"{place}:{number}"
    return json_bytes(characterize(arguments, place), place)


def _error(error: InputError, number: int) -> bytes:
    return json_bytes({"error": {"line": number, "message": error.what}}, "")


@contextmanager
def _output(source: str, target: str, *, resume: bool) -> Iterator[FileIO]:
    with input_errors_at(input_place(source)):
        requests = os.fstat(sys.stdin.fileno()) if source == "-" else os.stat(source)
    place = "standard output" if target == "-" else target
    with input_errors_at(place), _opened(target) as output:
        state = os.fstat(output.fileno())
        if _is_file(output) and os.path.samestat(state, requests):
            raise InputError(place, "expected another file than that of the requests")
        if _is_file(output) and target != "-" and state.st_size and not resume:
            raise InputError(place, "expected a new file, or --resume to go on after its lines")
        yield output


def _opened(target: str) -> FileIO:
    if target == "-":
        return FileIO(sys.stdout.fileno(), "wb", closefd=False)
    return FileIO(target, "ab+")


def _is_file(output: FileIO) -> bool:
    return stat.S_ISREG(os.fstat(output.fileno()).st_mode)


def _keep_whole_lines(output: FileIO, target: str) -> Tally:
    """Counts the whole lines of an earlier run and cuts off a line that was not finished."""
    lines = bad = size = 0
    if _is_file(output):
        for line in read_lines(target):
            if line.endswith(b"\n"):
                is_error = line.startswith(ERROR_START)
                lines += 1
                bad += is_error
                size += len(line)
                if not is_error and IN_EVERY_RECORD not in line:
                    raise InputError(f"{target}:{lines}", "expected an answer of an earlier run")
        output.truncate(size)
    return Tally(lines, bad)


def _write(output: FileIO, line: bytes) -> None:
    while line:
        line = line[output.write(line) :]


def _numbered(source: str) -> Generator[tuple[int, bytes]]:
    yield from enumerate(read_lines(source), 1)


def _under_bar(source: str, console: Console) -> Generator[tuple[int, bytes]]:
    """The numbered lines, with a bar that shows how much of the source has been read."""
    count = TextColumn("{task.fields[lines]:,} lines")
    with Progress(count, BarColumn(), TimeRemainingColumn(), console=console) as progress:
        size = os.path.getsize(source) if os.path.isfile(source) else None
        task = progress.add_task("", total=size, lines=0)
        number = done = 0
        for number, line in _numbered(source):
            yield number, line
            done += len(line)
            if number % LINES_A_REFRESH == 0:
                progress.update(task, completed=done, lines=number)
        progress.update(task, completed=done, total=done, lines=number)
