"""A process that answers blocks for another one, and how the two speak: messages through pipes,
each behind its length. It ends when there is nobody to send the next.
"""

import signal
import sys
from typing import IO, Any

import msgspec

from .answer import Answerer, Block, Setting

LENGTH = 8  # bytes of the length in front of a message


def send(pipe: IO[bytes] | None, message: Any) -> None:
    assert pipe is not None
    data = msgspec.msgpack.encode(message)
    pipe.write(len(data).to_bytes(LENGTH) + data)
    pipe.flush()


def received(pipe: IO[bytes] | None) -> bytes:
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
    answer = Answerer(msgspec.json.decode(sys.argv[1], type=Setting)).block
    while message := received(requests):
        send(answers, answer(msgspec.msgpack.decode(message, type=Block)))


if __name__ == "__main__":
    main()
