"""Answers a file of requests with a file of records, JSON lines both, line by line in order."""

import os
import sys
from collections.abc import Iterator, Sequence
from contextlib import contextmanager
from io import FileIO
from pathlib import Path

from .blocks import Source, is_file, source_of, state_of
from .exchange import Answered, Answering, Block, Setting
from .files import COMPRESSED, InputError, compressed, input_errors_at, input_place
from .messages import messages_for
from .output import Output, Progress, Run, Stream, part_of
from .tables import fingerprint


def answer_all(
    source: str, target: str, *, keep: Sequence[str], jobs: int, resume: bool
) -> Progress:
    """Answers each request that the target has no answer to yet; returns what was done in all."""
    state = state_of(source)
    setting = Setting(input_place(source), [*keep], Path(target).suffix)
    at_once = not is_file(state) and setting.suffix not in COMPRESSED
    with (
        source_of(source) as requests,
        _output(setting, target, state, resume=resume) as output,
        _answering(jobs, setting) as answered_in_order,
        messages_for(state, bar=target != "-") as messages,
    ):
        requests.skip(output.progress.read, output.progress.input)
        blocks = _numbered(requests.blocks(at_once=at_once), output.progress.lines + 1)
        for block, answered in answered_in_order(blocks):
            for message in output.progress.reports.add(answered.reports):
                messages.report(message)
            _keep(output, requests, block, answered)
            messages.show(output.progress.lines, output.progress.read)
        if not output.progress.written:
            output.write(compressed(b"", setting.suffix))
    return output.progress


def _numbered(blocks: Iterator[bytes], first: int) -> Iterator[Block]:
    for data in blocks:
        yield Block(first, data)
        first += data.count(b"\n")


@contextmanager
def _answering(jobs: int, setting: Setting) -> Iterator[Answering]:
    """Whatever answers is imported here: with processes, this one needs no tables."""
    if jobs > 1:
        from .jobs import processes

        with processes(jobs, setting) as answered:
            yield answered
    else:
        from .answer import Answerer

        answer = Answerer(setting).block
        yield lambda blocks: ((block, answer(block)) for block in blocks)


def _keep(output: Output, requests: Source, block: Block, answered: Answered) -> None:
    output.write(answered.data)
    progress = output.progress
    progress.lines += answered.lines
    progress.read += len(block.data)
    progress.input = requests.checksum_with(block.data)
    if block.data.endswith(b"\n"):  # a last line without its end may still grow
        output.save()


@contextmanager
def _output(
    setting: Setting, target: str, requests: os.stat_result, *, resume: bool
) -> Iterator[Output]:
    if target != "-" and (not os.path.exists(target) or is_file(os.stat(target))):
        run = Run(setting.keep, fingerprint())
        with part_of(target, run, resume=resume) as part:
            yield part
        return
    place = "standard output" if target == "-" else target
    with input_errors_at(place):
        if target == "-":
            file = FileIO(sys.stdout.fileno(), "wb", closefd=False)
        else:
            file = FileIO(target, "wb")
        state = os.fstat(file.fileno())
        if is_file(state) and os.path.samestat(state, requests):
            raise InputError(place, "expected another file than that of the requests")
    with file:
        yield Stream(file, place)
