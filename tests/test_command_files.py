"""The commands over files of JSON lines: a batch that loses nothing."""

import codecs
import json
import os
import signal
import subprocess
import sys
import time
from pathlib import Path

import pytest

from tavik_agent import material_characterization as mc
from tavik_agent.characterize.command import run

COMMAND = [sys.executable, "-m", "tavik_agent.characterize"]
GOOD = [{"step": "scf", "query_text": text} for text in ("NiO", "\ud800", "", "salt")]


def as_lines(values):
    return b"".join(json.dumps(value).encode() + b"\n" for value in values)


@pytest.fixture(autouse=True)
def _in_a_folder_of_its_own(tmp_path, monkeypatch):
    monkeypatch.chdir(tmp_path)


@pytest.fixture
def answered():
    """The requests of in.jsonl, one of them bad, and what out.jsonl holds when all are answered."""
    requests = as_lines([*GOOD, {"step": 1}, *GOOD])
    Path("in.jsonl").write_bytes(requests)
    assert run(["batch", "in.jsonl", "-o", "out.jsonl"]) == 1
    return Path("out.jsonl").read_bytes()


BAD = {
    b"": ":{}:1: invalid JSON: Expecting value",
    b'{"step": "\xff"}': ":{}:11: expected UTF-8, not the byte 0xff",
    b"[" * 100_000: ":{}: expected JSON that is nested less deeply",
    b"3": ":{}: expected an object, not 3",
    b'{"step": "a", "base_characterization": {"confidence": "x"}}': (
        ":{}: the values give ValueError: could not convert string to float: 'x'"
    ),
}


def test_bad_lines_among_good_ones(capfd):
    good = {"step": "scf", "query_text": "NiO \ud800"}
    lines = b"\r\n".join(as_lines([good]) + bad for bad in BAD)
    Path("in.jsonl").write_bytes(codecs.BOM_UTF8 + lines)
    assert run(["batch", "in.jsonl"]) == 1
    out, err = capfd.readouterr()
    answers = [json.loads(line) for line in out.splitlines()]
    assert answers[::2] == [mc.characterize_material(**good)] * len(BAD)
    numbers = range(2, 2 * len(BAD) + 1, 2)
    told = ["in.jsonl" + text.format(n) for n, text in zip(numbers, BAD.values(), strict=True)]
    assert err.splitlines() == [
        *told,
        f"tavik-characterize: {len(BAD)} of {len(answers)} lines are bad",
    ]
    for number, answer, message in zip(numbers, answers[1::2], told, strict=True):
        assert answer["error"].keys() == {"line", "message"}
        assert answer["error"]["line"] == number
        assert message.endswith(f": {answer['error']['message']}")


@pytest.mark.parametrize("cut", [0, 1, 300, None, -1, -2])
def test_resume_after_the_whole_lines(cut, answered, capfd):
    Path("out.jsonl").write_bytes(answered[:cut])
    assert run(["batch", "in.jsonl", "-o", "out.jsonl", "--resume"]) == 1
    assert Path("out.jsonl").read_bytes() == answered
    assert capfd.readouterr().err.endswith(": 1 of 9 lines are bad\n")


def test_nothing_is_written_over(answered, capfd):
    Path("few.jsonl").write_bytes(as_lines(GOOD) + b"last line without an end")
    os.link("in.jsonl", "link.jsonl")
    capfd.readouterr()
    for words, message in {
        "in.jsonl -o out.jsonl": "out.jsonl: expected a new file, or --resume",
        "in.jsonl -o link.jsonl --resume": "link.jsonl: expected another file than",
        "few.jsonl -o out.jsonl --resume": "out.jsonl: expected no more than the 5 lines",
        "out.jsonl -o few.jsonl --resume": "few.jsonl:1: expected an answer of an earlier run",
    }.items():
        assert run(["batch", *words.split()]) == 2
        assert capfd.readouterr().err.startswith(f"tavik-characterize batch: {message}")
    assert Path("out.jsonl").read_bytes() == answered
    assert Path("few.jsonl").read_bytes().endswith(b"without an end")


@pytest.mark.parametrize(
    ("stop", "status", "message"),
    [(signal.SIGKILL, -9, b""), (signal.SIGINT, 130, b"tavik-characterize: interrupted\n")],
)
def test_interrupted_run_leaves_what_it_answered(stop, status, message):
    command = [*COMMAND, "batch", "-", "-o", "out.jsonl"]

    def heed_interruptions():
        """What a shell starts in the background ignores them, and so would the command."""
        signal.signal(signal.SIGINT, signal.SIG_DFL)

    with subprocess.Popen(
        command,
        stdin=subprocess.PIPE,
        stderr=subprocess.PIPE,
        preexec_fn=heed_interruptions,
    ) as batch:
        batch.stdin.write(as_lines(GOOD))
        batch.stdin.flush()
        while not (Path("out.jsonl").exists() and written().count(b"\n") == len(GOOD)):
            assert batch.poll() is None
            time.sleep(0.01)
        batch.send_signal(stop)
        assert (batch.wait(), batch.stderr.read()) == (status, message)
    assert written().endswith(b"}\n")


def written():
    return Path("out.jsonl").read_bytes()


def test_bar_on_a_terminal(answered, on_terminal):
    screen = on_terminal([*COMMAND, "batch", "in.jsonl", "-o", "new.jsonl"])
    assert "in.jsonl:5: step: expected a string, not 1\r\n" in screen
    assert "9 lines \x1b" in screen


def test_a_reader_that_has_seen_enough():
    Path("in.jsonl").write_bytes(as_lines(GOOD) * 500)
    words = ["sh", "-c", '"$@" batch in.jsonl | head -n 1', "sh", *COMMAND]
    done = subprocess.run(words, capture_output=True)
    assert (done.stdout.count(b"\n"), done.stderr) == (1, b"")
