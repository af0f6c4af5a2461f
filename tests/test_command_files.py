"""The commands over files of JSON lines: a batch that loses nothing."""

import codecs
import contextlib
import gzip
import json
import os
import re
import signal
import subprocess
import sys
import time
from collections import Counter
from pathlib import Path

import pytest
from backports import zstd

from tavik_agent import material_characterization as mc
from tavik_agent.characterize import without_nulls
from tavik_agent.characterize.command import run

COMMAND = [sys.executable, "-P", "-m", "tavik_agent.characterize"]
BATCH = [*COMMAND, "batch", "--keep", "id"]


def as_lines(values):
    return b"".join(json.dumps(value).encode() + b"\n" for value in values)


pytestmark = pytest.mark.usefixtures("own_folder")


# Where a line cannot be read, the message begins with the place in it.
BAD = {
    b"": ":1: invalid JSON: Expecting value",
    b'{"step" }': ":9: invalid JSON: Expecting ':' delimiter",
    b'{"step": "a", "findings": [NaN]}': ": invalid JSON: NaN is no number of JSON",
    b'{"step": "\xff"}': ":11: expected UTF-8, not the byte 0xff",
    b'{"step": "a", "step_params": {"x": "\xff"}}': ":37: expected UTF-8, not the byte 0xff",
    b'{"findings": ' + b"[" * 100_000: ": expected JSON that is nested less deeply",
    b'["step"]': ": $: expected object, got array",
    b"{}": ": $.step: expected the name of the planning step",
    b'{"step": null}': ": $.step: expected the name of the planning step",
    b'{"step": 3, "query_text": "\\ud800"}': ": $.step: expected str, got int",
    b'{"x\\u001b": 1}': r": $: unknown entry 'x\x1b'; expected step, step_params, query_text, "
    "findings, planner_manifest, previous_steps_params, base_characterization, query_intent",
    b'{"findings": "NiO"}': ": $.findings: expected array, got str",
    b'{"query_intent": {"species": [1]}}': ": $.query_intent.species[0]: expected str, got int",
    b'{"previous_steps_params": {"a": {}, "b": {"atom": 1}}}': ": $.previous_steps_params"
    '["b"].atom: expected object, got int',
    b'{"base_characterization": {"confidence": ""}}': ": $.base_characterization.confidence: "
    "expected float, got str",
}
KINDS = {"invalid JSON": 3, "not UTF-8": 2, "nested too deeply": 1, "wrong entry $": 1}
KINDS |= {"no step": 2, "wrong entry $.step": 1, "unknown entry": 1}
KINDS |= {"wrong entry $.findings": 1, "wrong entry $.query_intent.species[]": 1}
KINDS |= {"wrong entry $.previous_steps_params[].atom": 1}
KINDS |= {"wrong entry $.base_characterization.confidence": 1}
OWN = "unknown entry; --keep KEY is for entries of your own"
UNUSUAL = [
    {"query_text": None, "step_params": None, "query_intent": {"formula": None}, "findings": []},
    {"base_characterization": {"confidence": 0.9, "id": 2**70, "note": [None, 1.5], "x": None}},
    {"query_intent": {"corelation": "dft+u", "correlation": " DFT+U", "own": [1]}},
    {"step_params": {"element": {"Ni": None, "O": "O.upf"}, "cutoff": 60}, "findings": [None]},
]


def test_bad_lines_among_good_ones(capfd):
    good = {"step": "scf", "query_text": "NiO \ud800"}
    lines = b"\r\n".join(as_lines([good]) + bad for bad in BAD)
    Path("in.jsonl").write_bytes(codecs.BOM_UTF8 + lines)
    assert run(["batch", "in.jsonl"]) == 1
    out, err = capfd.readouterr()
    answers = [json.loads(line) for line in out.splitlines()]
    assert answers[::2] == [mc.characterize_material(**good)] * len(BAD)
    reported = [f"in.jsonl:{2 * n}{message}" for n, message in enumerate(BAD.values(), 1)]
    counted = [f"{times:>9}  {kind}".replace("unknown entry", OWN) for kind, times in KINDS.items()]
    total = f"tavik-characterize: {len(BAD)} of {2 * len(BAD)} lines are bad"
    assert err.splitlines() == [*reported, total, *counted]
    errors = [answer["error"] for answer in answers[1::2]]
    assert Counter(error["kind"] for error in errors) == KINDS
    for error, message in zip(errors, reported, strict=True):
        assert message.startswith(f"in.jsonl:{error['line']}:")
        assert message.endswith(f": {error['message']}")


@pytest.mark.parametrize(("bad", "message"), [*BAD.items()][1:])
def test_the_same_in_a_file_of_one_request(bad, message, capfd):
    Path("request").write_bytes(b"\n" + bad)
    assert run(["--request", "request"]) == 2
    line = ":2" if re.match(r":\d", message) else ":1" if "$" not in message else ""
    assert capfd.readouterr() == ("", f"tavik-characterize: request{line}{message}\n")


def test_only_the_first_few_of_a_kind_are_reported(capfd):
    wrong = {"step": 1, "query_text": "of several blocks " * 40}
    Path("in.jsonl").write_bytes(as_lines([wrong] * 5000 + [{"step": "a", "x": 1}]))
    assert run(["batch", "in.jsonl"]) == 1
    *reported, _, wrong, unknown = capfd.readouterr().err.splitlines()
    assert [line.split(":")[1] for line in reported] == ["1", "2", "3", "5001"]
    assert (wrong, unknown) == ("    5,000  wrong entry $.step", f"        1  {OWN}")


def test_unusual_requests(capfd):
    requests = [{"step": "a"} | request for request in UNUSUAL]
    Path("in.jsonl").write_bytes(as_lines(requests))
    assert run(["batch", "in.jsonl"]) == 0
    out, err = capfd.readouterr()
    records = [mc.characterize_material(**without_nulls(request)) for request in requests]
    assert [json.loads(line) for line in out.splitlines()] == records
    warning = "warning: $.query_intent: 'corelation' is not read, but correlation is"
    assert err == f"in.jsonl:3: {warning}\n        1  {warning}\n"


NIO = {"step": "a", "query_text": "NiO"}
EARLIER = {"base_characterization": {"-id": 2, "evidence": []}}
# Lines and what stands in front of their answers.
KEPT = [
    (as_lines([NIO | {"-id": id_}]), {"-id": id_, "query_text": "NiO"})
    for id_ in (2**70, {"b": [1.50, None]}, "\ud800")
] + [
    (as_lines([NIO | {"-id": None}]), {"query_text": "NiO"}),
    (b'{"step": 1, "-id": "x"}\n', {"-id": "x"}),
    (b'{"step": "a", "-id": 1e999}\n', {}),
    (b"3\n", {}),
    (as_lines([{"-id": 1, "step": "a"} | EARLIER]), {"-id": 1}),
]


def test_kept_entries_come_first():
    Path("in.jsonl").write_bytes(b"".join(line for line, _ in KEPT))
    words = ["in.jsonl", "-o", "out.jsonl", "--keep", "-id", "--keep", "query_text"]
    assert run(["batch", *words]) == 1
    answers = [json.loads(line) for line in Path("out.jsonl").read_bytes().splitlines()]
    for answer, (_, front) in zip(answers, KEPT, strict=True):
        assert [*answer.items()][: len(front)] == [*front.items()]
        assert [*answer][len(front)] in ("step", "evidence", "error")
    assert run(["summary", "out.jsonl"]) == 0  # reads whatever batch writes


MANY = 6000  # requests, of several blocks
OPENED = {"": open, ".gz": gzip.open, ".zst": zstd.open}


@pytest.fixture
def many():
    """The requests of in.jsonl, some of them bad, and what the output holds in the end."""
    texts = [f"{text} {n}" for n in range(MANY // 4) for text in ("NiO", "\ud800 Fe2O3", "é", "x")]
    requests = [{"step": "scf", "query_text": text * 160, "id": n} for n, text in enumerate(texts)]
    requests[MANY // 2] = {"step": 1}
    for suffix, opened in OPENED.items():
        with opened(f"in.jsonl{suffix}", "wb") as file:
            file.write(as_lines(requests))
    assert subprocess.run([*BATCH, "in.jsonl", "-o", "out.jsonl"]).returncode == 1
    return Path("out.jsonl").read_bytes()


@pytest.mark.parametrize("suffix", OPENED)
def test_processes_and_compression_change_nothing(suffix, many, capfd):
    Path("numbers.py").write_text("raise SystemExit('imported from the current folder')")
    said = set()
    for jobs in ("1", "2"):
        words = [f"in.jsonl{suffix}", "-o", f"out{jobs}{suffix}", "--jobs", jobs]
        assert subprocess.run([*BATCH, *words]).returncode == 1
        said.add(capfd.readouterr())
        with OPENED[suffix](words[2], "rb") as file:
            assert file.read() == many
    assert len(said) == 1
    assert Path(f"out1{suffix}").read_bytes() == Path(f"out2{suffix}").read_bytes()


def interrupted(*words, stop=signal.SIGKILL):
    """A run that is stopped when its input has not ended yet; what it says."""
    source = Path("in.jsonl").read_bytes().splitlines(keepends=True)[: MANY - 1000]
    # What a shell starts in the background ignores interruptions, and so would the command.
    how = {"stdin": subprocess.PIPE, "stderr": subprocess.PIPE, "process_group": 0}
    how["preexec_fn"] = lambda: signal.signal(signal.SIGINT, signal.SIG_DFL)
    with subprocess.Popen([*BATCH, "-", "-o", *words], **how) as batch:
        batch.stdin.write(b"".join(source))
        batch.stdin.flush()
        progress = Path(f"{words[0]}.part.progress")
        while not (progress.exists() and progress.read_bytes().count(b"\n") > 2):
            assert batch.poll() is None
            time.sleep(0.01)
        # Python misses an interruption that comes right before it waits for input.
        while batch.poll() is None:
            os.killpg(batch.pid, stop)
            with contextlib.suppress(subprocess.TimeoutExpired):
                batch.wait(5)
        return batch.returncode, batch.stderr.read().decode()


@pytest.mark.parametrize(
    ("name", "jobs", "stop", "left"),
    [
        ("new", "1", signal.SIGINT, None),
        ("new.gz", "2", signal.SIGINT, None),
        ("new.gz", "2", signal.SIGKILL, None),
        # A power cut may leave less or more than was noted, and half a line of progress.
        *(("new", "1", signal.SIGKILL, left) for left in (0, 1, 1000, -1)),
    ],
)
def test_a_run_that_was_stopped_is_gone_on_with(name, jobs, stop, left, many):
    status, said = interrupted(name, "--jobs", jobs, stop=stop)
    assert not Path(name).exists()
    if stop == signal.SIGINT:
        assert status == 130
        assert "tavik-characterize: interrupted; --resume goes on after " in said.splitlines()[-1]
        assert "Traceback" not in said
    if left is not None:
        for path, end in (("new.part", left), ("new.part.progress", -10)):
            Path(path).write_bytes(Path(path).read_bytes()[:end])
    assert subprocess.run([*BATCH, "in.jsonl", "-o", name, "--resume"]).returncode == 1
    with OPENED[Path(name).suffix](name, "rb") as file:
        assert file.read() == many
    assert [*Path().glob("new*")] == [Path(name)]


FOREIGN = "new.part: expected what the earlier run wrote"


@pytest.mark.parametrize(
    ("name", "spoil", "words", "message"),
    [
        ("new", None, "", "new.part: expected no unfinished run; --resume goes on with it"),
        (
            "in.jsonl",
            lambda data: b"x" + data[1:],
            "--resume",
            "in.jsonl: expected to begin with the ",
        ),
        ("in.jsonl", lambda data: b"", "--resume", "in.jsonl: expected to begin with the "),
        ("new.part", lambda data: b"x" * 10**6, "--resume", FOREIGN),
        ("new.part", lambda data: bytes(10) + data[10:], "--resume", FOREIGN),
        ("new.part", lambda data: data + b"x", "--resume", FOREIGN),
        ("new.part.progress", None, "--resume", "new.part: expected no such file"),
        ("new.part.progress", lambda data: b"x", "--resume", "new.part.progress: expected the pro"),
        ("new", lambda data: data, "--resume", "new: expected a new file"),
        ("new", None, "--resume --keep step_params", "new.part: expected a run with the same --k"),
    ],
)
def test_nothing_foreign_is_touched(name, spoil, words, message, many, capfd):
    interrupted("new")
    if spoil:
        Path(name).write_bytes(spoil(Path(name).read_bytes() if Path(name).exists() else b""))
    else:
        Path(name).unlink(missing_ok=True)
    before = {path.name: path.read_bytes() for path in Path().iterdir()}
    assert subprocess.run([*BATCH, "in.jsonl", "-o", "new", *words.split()]).returncode == 2
    assert capfd.readouterr().err.startswith(f"tavik-characterize batch: {message}")
    assert {path.name: path.read_bytes() for path in Path().iterdir()} == before


def test_one_writer_at_a_time(many, capfd):
    with subprocess.Popen([*BATCH, "-", "-o", "new"], stdin=subprocess.PIPE) as first:
        while not Path("new.part").exists():
            time.sleep(0.01)
        for words in ([], ["--resume"]):
            assert subprocess.run([*BATCH, "in.jsonl", "-o", "new", *words]).returncode == 2
            assert capfd.readouterr().err.endswith(": new: another run is writing it\n")
        first.communicate(Path("in.jsonl").read_bytes())
    assert Path("new").read_bytes() == many


def test_a_process_that_ends_too_soon(many):
    words = [*BATCH, "-", "-o", "new", "--jobs", "2"]
    with subprocess.Popen(words, stdin=subprocess.PIPE, stderr=subprocess.PIPE) as batch:
        children = Path(f"/proc/{batch.pid}/task/{batch.pid}/children")
        if not children.exists():
            batch.kill()
            pytest.skip("no list of a process's children")
        while len(workers := children.read_text().split()) < 2:
            time.sleep(0.01)
        os.kill(int(workers[0]), signal.SIGKILL)
        _, said = batch.communicate(Path("in.jsonl").read_bytes())
    assert batch.returncode == 2
    assert b": a process of --jobs: ended with status -9" in said


def test_bar_on_a_terminal(many, on_terminal):
    screen = on_terminal([*COMMAND, "batch", "in.jsonl", "-o", "new"])
    assert "in.jsonl:1: $: unknown entry 'id'; expected" in screen
    assert "6,000 lines \x1b" in screen


def test_a_reader_that_has_seen_enough():
    Path("in.jsonl").write_bytes(as_lines([{"step": "scf"}]) * 20_000)
    words = ["sh", "-c", '"$@" batch in.jsonl --jobs 2 | head -n 1', "sh", *COMMAND]
    done = subprocess.run(words, capture_output=True)
    assert (done.stdout.count(b"\n"), done.stderr) == (1, b"")
