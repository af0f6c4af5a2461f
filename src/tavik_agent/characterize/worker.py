"""A process that answers blocks for another one. It ends when there is nobody to send the next."""

import signal
import sys

import msgspec

from .answer import Answerer
from .exchange import Block, Setting, received, send


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
