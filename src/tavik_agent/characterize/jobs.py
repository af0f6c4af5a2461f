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
from contextlib import ExitStack, contextmanager, suppress
from queue import SimpleQueue

import msgspec

from . import worker
from .answer import Answered, Block, Setting
from .files import InputError
from .worker import received, send

UNDER_WAY = 2  # blocks for each process
OWN_GROUP = 0 if hasattr(os, "setpgid") else None  # Ctrl-C is for the process that asks


def answered_by(
    jobs: int, setting: Setting, blocks: Iterable[Block]
) -> Iterator[tuple[Block, Answered]]:
    """Each block with its answers, by so many processes."""
    most = UNDER_WAY * jobs
    with _processes(setting, jobs) as ask, ThreadPoolExecutor(jobs, "", _hold_signals) as threads:
        under_way: deque[tuple[Block, Future[Answered]]] = deque()
        try:
            for block in blocks:
                under_way.append((block, threads.submit(ask, block)))
                while under_way and (len(under_way) == most or under_way[0][1].done()):
                    first, answered = under_way.popleft()
                    yield first, answered.result()
            for first, answered in under_way:
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

    command = [sys.executable, "-m", worker.__name__, msgspec.json.encode(setting).decode()]
    with ExitStack() as processes:
        for _ in range(jobs):
            process = subprocess.Popen(
                command,
                stdin=subprocess.PIPE,
                stdout=subprocess.PIPE,
                process_group=OWN_GROUP,
            )
            idle.put(processes.enter_context(process))
        yield ask


def _hold_signals() -> None:
    """In this thread a pipe that nobody reads is an error, and not the end of everything."""
    if hasattr(signal, "SIGPIPE"):
        signal.pthread_sigmask(signal.SIG_BLOCK, [signal.SIGPIPE])


def _asked(process: subprocess.Popen[bytes], block: Block) -> Answered:
    assert process.stdin is not None
    try:
        send(process.stdin, block)
        if message := received(process.stdout):
            return msgspec.msgpack.decode(message, type=Answered)
    except OSError:  # it has ended
        with suppress(OSError):
            process.stdin.close()  # here, since what is left in it cannot be written
    raise InputError("a process of --jobs", f"ended with status {process.wait()}")
