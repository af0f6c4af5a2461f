"""Blocks answered by other processes, in order: each thread of this one hands blocks to a process,
and as many blocks are under way as keep all of them busy. The processes end with this one, however
it ends, since nobody writes to their standard input then.
"""

import os
import signal
import subprocess
import sys
from collections import deque
from collections.abc import Callable, Iterable, Iterator
from concurrent.futures import Future, ThreadPoolExecutor
from contextlib import ExitStack, contextmanager
from queue import SimpleQueue
from typing import IO, Any

import msgspec

from .answer import Answerer, Troubles
from .files import InputError, compressed

UNDER_WAY = 2  # blocks for each process
LENGTH = 8  # bytes of the length in front of a message
OWN_GROUP = 0 if hasattr(os, "setpgid") else None  # Ctrl-C is for the process that asks


class Setting(msgspec.Struct):
    """What is the same for all blocks; the suffix is that of the output."""

    place: str
    keep: list[str]
    suffix: str


class Block(msgspec.Struct):
    """Lines of requests, of which the first has that number."""

    first: int
    data: bytes


class Answered(msgspec.Struct):
    """The output for a block."""

    data: bytes
    lines: int
    troubles: Troubles


def answerer(setting: Setting) -> Callable[[Block], Answered]:
    answer = Answerer(setting.place, tuple(setting.keep)).block

    def answered(block: Block) -> Answered:
        lines = block.data.split(b"\n")
        if not lines[-1]:
            lines.pop()
        troubles = Troubles()
        data = compressed(answer(lines, block.first, troubles), setting.suffix)
        return Answered(data, len(lines), troubles)

    return answered


def answered_in_order(
    setting: Setting, blocks: Iterable[Block], jobs: int
) -> Iterator[tuple[Block, Answered]]:
    """Each block with its answers; the first process is this one when it is the only one."""
    if jobs == 1:
        answer = answerer(setting)
        yield from ((block, answer(block)) for block in blocks)
        return
    with _processes(setting, jobs) as ask, ThreadPoolExecutor(jobs) as threads:
        under_way: deque[tuple[Block, Future[Answered]]] = deque()
        try:
            for block in blocks:
                under_way.append((block, threads.submit(ask, block)))
                if len(under_way) == UNDER_WAY * jobs:
                    first, answered = under_way.popleft()
                    yield first, answered.result()
            while under_way:
                first, answered = under_way.popleft()
                yield first, answered.result()
        finally:
            threads.shutdown(cancel_futures=True)


@contextmanager
def _processes(setting: Setting, jobs: int) -> Iterator[Callable[[Block], Answered]]:
    """A function that has a block answered by a process that has nothing else to do."""
    idle: SimpleQueue[subprocess.Popen[bytes]] = SimpleQueue()

    def ask(block: Block) -> Answered:
        process = idle.get()
        try:
            return _asked(process, block)
        finally:
            idle.put(process)

    with ExitStack() as processes:
        for _ in range(jobs):
            command = [sys.executable, "-m", __name__]
            process = subprocess.Popen(
                command,
                stdin=subprocess.PIPE,
                stdout=subprocess.PIPE,
                process_group=OWN_GROUP,
            )
            idle.put(processes.enter_context(process))
            _send(process.stdin, setting)
        yield ask


def _asked(process: subprocess.Popen[bytes], block: Block) -> Answered:
    try:
        _send(process.stdin, block)
        if message := _received(process.stdout):
            return msgspec.msgpack.decode(message, type=Answered)
    except OSError:
        pass  # it has ended
    raise InputError("a process of --jobs", f"ended with status {process.wait()}")


def _send(pipe: IO[bytes] | None, message: Any) -> None:
    assert pipe is not None
    data = msgspec.msgpack.encode(message)
    pipe.write(len(data).to_bytes(LENGTH) + data)
    pipe.flush()


def _received(pipe: IO[bytes] | None) -> bytes:
    """The next message, empty when there is none any more."""
    assert pipe is not None
    length = int.from_bytes(pipe.read(LENGTH))
    data = pipe.read(length)
    return data if len(data) == length else b""


def main() -> None:
    """Answers the blocks that come in."""
    if hasattr(signal, "SIGPIPE"):
        signal.signal(signal.SIGPIPE, signal.SIG_DFL)  # nobody waits for the answer any more
    requests, answers = sys.stdin.buffer, sys.stdout.buffer
    answer = answerer(msgspec.msgpack.decode(_received(requests), type=Setting))
    while message := _received(requests):
        _send(answers, answer(msgspec.msgpack.decode(message, type=Block)))


if __name__ == "__main__":
    main()
