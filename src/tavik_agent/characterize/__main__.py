"""Starts the command, or reports in one line what is missing to start it."""

import signal
import sys

from . import FAILURE, NAME, PACKAGE

INTERRUPTED = 130


def main() -> None:
    if hasattr(signal, "SIGPIPE"):
        # Closing the pipe that is written to ends the command, as it does any other.
        signal.signal(signal.SIGPIPE, signal.SIG_DFL)
    if sys.stdin is None or sys.stdout is None:
        _end("expected standard input and output to be open", FAILURE)
    try:
        from .command import run

        sys.exit(run(sys.argv[1:]))
    except ModuleNotFoundError as missing:
        library = (missing.name or "").partition(".")[0]
        if library not in ("backports", "click", "msgspec", "rich"):
            raise
        extra = f"pip install '{PACKAGE}[cli]'"
        _end(f"the library {library} is missing: {extra}", FAILURE)
    except KeyboardInterrupt as interrupted:
        _end(f"interrupted{interrupted}", INTERRUPTED)


def _end(message: str, status: int) -> None:
    print(f"{NAME}: {message}", file=sys.stderr)
    sys.exit(status)


if __name__ == "__main__":
    main()
