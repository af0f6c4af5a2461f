"""Blocks answered by other processes, in order: they take turns, and each answers its block while
this one serves the others. They end with this one, however it ends, since nobody writes to their
standard input then.
"""

import os
import signal
import subprocess
import sys
from collections import deque
from collections.abc import Iterable, Iterator, Sequence
from contextlib import ExitStack, contextmanager, suppress
from functools import partial

import msgspec

from .exchange import Answered, Answering, Block, Setting, received, send
from .files import InputError, input_errors_at

WORKER = f"{__package__}.worker"
PLACE = "a process of --jobs"
OWN_GROUP = 0 if hasattr(os, "setpgid") else None  # Ctrl-C is for the process that asks

type Process = subprocess.Popen[bytes]


@contextmanager
def processes(jobs: int, setting: Setting) -> Iterator[Answering]:
    """Starts so many processes; while they come up, the first blocks can be read."""
    # Modules are found where they are found here, and not first in the current folder.
    command = [sys.executable, "-P", "-m", WORKER, msgspec.json.encode(setting).decode()]
    with ExitStack() as started:
        yield partial(_in_turns, [started.enter_context(_process(command)) for _ in range(jobs)])


@contextmanager
def _process(command: Sequence[str]) -> Iterator[Process]:
    pipe = subprocess.PIPE
    environment = os.environ | {"PYTHONPATH": os.pathsep.join(filter(None, sys.path))}
    with input_errors_at(PLACE):
        process = subprocess.Popen(
            command, stdin=pipe, stdout=pipe, env=environment, process_group=OWN_GROUP
        )
    try:
        yield process
    finally:
        process.kill()  # it holds nothing that could be lost
        with _broken_pipe_is_an_error(), suppress(OSError), process:
            pass


def _in_turns(idle: list[Process], blocks: Iterable[Block]) -> Iterator[tuple[Block, Answered]]:
    at_work: deque[tuple[Process, Block]] = deque()
    for block in blocks:
        done = None
        if not idle:
            process, asked = at_work.popleft()
            done = asked, _answer_of(process)
            idle.append(process)
        process = idle.pop()
        _ask(process, block)
        at_work.append((process, block))
        if done:
            yield done
    for process, block in at_work:
        yield block, _answer_of(process)


def _ask(process: Process, block: Block) -> None:
    try:
        with _broken_pipe_is_an_error():
            send(process.stdin, block)
    except OSError:
        raise _ended(process) from None


def _answer_of(process: Process) -> Answered:
    if message := received(process.stdout):
        return msgspec.msgpack.decode(message, type=Answered)
    raise _ended(process)


def _ended(process: Process) -> InputError:
    return InputError(PLACE, f"ended with status {process.wait()}")


@contextmanager
def _broken_pipe_is_an_error() -> Iterator[None]:
    """And not the end of everything, which it is for standard output."""
    if not hasattr(signal, "SIGPIPE"):
        yield
        return
    signal.pthread_sigmask(signal.SIG_BLOCK, [signal.SIGPIPE])
    try:
        yield
    finally:
        if signal.SIGPIPE in signal.sigpending():
            signal.sigwait([signal.SIGPIPE])
        signal.pthread_sigmask(signal.SIG_UNBLOCK, [signal.SIGPIPE])
