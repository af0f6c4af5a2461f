"""Draws the screen of the command for the request that README.md shows.

Usage: picture.py FILE.svg. The command runs on a terminal, and rich draws what it wrote there.
"""

import contextlib
import os
import pty
import re
import shlex
import subprocess
import sys
import termios
from io import StringIO
from pathlib import Path

from rich.console import Console
from rich.text import Text

README = Path(__file__).parents[1] / "README.md"
COMMAND = re.compile(r"^\$ (tavik-characterize .*(?:\\\n.*)*)", re.MULTILINE)
WIDTH = 100
# The picture asks for nothing from outside.
FONT = re.compile(r"@font-face \{.*?\}\s*", re.DOTALL)


def screen_of(words: list[str]) -> str:
    """What the command writes to a terminal."""
    screen, terminal = pty.openpty()
    termios.tcsetwinsize(terminal, (200, WIDTH))
    environment = {k: v for k, v in os.environ.items() if k not in ("COLUMNS", "NO_COLOR")}
    environment |= {"TERM": "xterm-256color", "COLORTERM": "truecolor", "LC_ALL": "C.UTF-8"}
    with subprocess.Popen(words, stdout=terminal, env=environment) as command:
        os.close(terminal)
        written = b""
        with contextlib.suppress(OSError):  # the command has ended
            while more := os.read(screen, 65536):
                written += more
    if command.returncode:
        raise subprocess.CalledProcessError(command.returncode, words)
    return written.decode().replace("\r\n", "\n")


def main() -> None:
    found = COMMAND.search(README.read_text(encoding="utf-8"))
    assert found, "README.md shows no command"
    words = shlex.split(found[1])
    python = [sys.executable, "-m", "tavik_agent.characterize"]
    console = Console(record=True, file=StringIO(), width=WIDTH, force_terminal=True)
    console.print(Text(f"$ {found[1]}"))
    console.print(Text.from_ansi(screen_of(python + words[1:]).rstrip()))
    svg = FONT.sub("", console.export_svg(title=words[0])).replace("Fira Code", "Menlo, Consolas")
    Path(sys.argv[1]).write_text(svg, encoding="utf-8")


if __name__ == "__main__":
    main()
