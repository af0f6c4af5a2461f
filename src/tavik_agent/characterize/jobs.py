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
from functools import partial
from queue import SimpleQueue

import msgspec

from .exchange import Answered, Answering, Block, Setting, received, send
from .files import InputError

UNDER_WAY = 2  # blocks for each process
WORKER = f"{__package__}.worker"
OWN_GROUP = 0 if hasattr(os, "setpgid") else None  # Ctrl-C is for the process that asks


@contextmanager
def processes(jobs: int, setting: Setting) -> Iterator[Answering]:
    """Starts so many processes; while they come up, the first blocks can be read."""
    idle: SimpleQueue[subprocess.Popen[bytes]] = SimpleQueue()

    def ask(block: Block) -> Answered:
        """Has the block answered by a process that has nothing else to do."""
        process = idle.get()
        try:
            return _asked(process, block)
        finally:
            idle.put(process)

    command = [sys.executable, "-m", WORKER, msgspec.json.encode(setting).decode()]
    with ExitStack() as started, ThreadPoolExecutor(jobs, "", _hold_signals) as threads:
        for _ in range(jobs):
            process = subprocess.Popen(
                command,
                stdin=subprocess.PIPE,
                stdout=subprocess.PIPE,
                process_group=OWN_GROUP,
            )
            idle.put(started.enter_context(process))
        try:
            yield partial(_in_order, lambda block: threads.submit(ask, block), UNDER_WAY * jobs)
        finally:
            threads.shutdown(cancel_futures=True)


def _in_order(
    submit: Callable[[Block], Future[Answered]], most: int, blocks: Iterable[Block]
) -> Iterator[tuple[Block, Answered]]:
    under_way: deque[tuple[Block, Future[Answered]]] = deque()
    for block in blocks:
        under_way.append((block, submit(block)))
        while under_way and (len(under_way) == most or under_way[0][1].done()):
            first, answered = under_way.popleft()
            yield first, answered.result()
    for first, answered in under_way:
        yield first, answered.result()


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
