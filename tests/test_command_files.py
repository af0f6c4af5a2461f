"""The commands over files of JSON lines: a batch that loses nothing."""

import codecs
import contextlib
import gzip
import json
import os
import signal
import subprocess
import sys
import time
from pathlib import Path

import pytest
from backports import zstd

from tavik_agent import material_characterization as mc
from tavik_agent.characterize import without_nulls
from tavik_agent.characterize.command import run

COMMAND = [sys.executable, "-m", "tavik_agent.characterize"]
GOOD = [{"step": "scf", "query_text": text} for text in ("NiO", "\ud800", "", "salt")]


def as_lines(values):
    return b"".join(json.dumps(value).encode() + b"\n" for value in values)


@pytest.fixture(autouse=True)
def _in_a_folder_of_its_own(tmp_path, monkeypatch):
    monkeypatch.chdir(tmp_path)


BAD = {
    b"": (":{}:1: invalid JSON: Expecting value", "invalid JSON"),
    b'{"step": "\xff"}': (":{}:11: expected UTF-8, not the byte 0xff", "not UTF-8"),
    b'{"step": "a", "step_params": {"x": "\xff"}}': (
        ":{}:37: expected UTF-8, not the byte 0xff",
        "not UTF-8",
    ),
    b'{"step": "a", "findings": ' + b"[" * 100_000: (
        ":{}: expected JSON that is nested less deeply",
        "nested too deeply",
    ),
    b'{"step": "a", "findings": [1e999]}': (
        ":{}: invalid JSON: 1e999 is out of range",
        "invalid JSON",
    ),
    b'{"step": "a", "id": 1}': (
        ":{}: $: unknown entry 'id'; expected step, step_params, query_text, findings, "
        "planner_manifest, previous_steps_params, base_characterization, query_intent",
        "unknown entry",
    ),
    b'{"step": "a", "step_params": {"element": [{"species": "Ni"}, "O"]}}': (
        ":{}: $.step_params.element[1]: expected object, got str",
        "wrong entry $.step_params.element[]",
    ),
    b'{"step": "a", "query_intent": {"species": "Ni", "formulae": "NiO"}}': (
        ":{}: $.query_intent.species: expected array, got str",
        "wrong entry $.query_intent.species",
    ),
}
UNUSUAL = [
    {"query_text": "NiO \ud800"},
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
    numbers = range(2, 2 * len(BAD) + 1, 2)
    reported = [
        f"in.jsonl{text.format(n)}" for n, (text, _) in zip(numbers, BAD.values(), strict=True)
    ]
    kinds = [kind for _, kind in BAD.values()]
    assert err.splitlines() == [
        *reported,
        f"tavik-characterize: {len(BAD)} of {len(answers)} lines are bad",
        *(f"{kinds.count(kind):>9}  {kind}" for kind in dict.fromkeys(kinds)),
    ]
    for number, answer, message, kind in zip(numbers, answers[1::2], reported, kinds, strict=True):
        assert answer["error"].keys() == {"line", "kind", "message"}
        assert (answer["error"]["line"], answer["error"]["kind"]) == (number, kind)
        assert message.endswith(f": {answer['error']['message']}")


def test_only_the_first_few_of_a_kind_are_reported(capfd):
    Path("in.jsonl").write_bytes(as_lines([{"step": 1}] * 5000 + [{"step": "a", "x": 1}]))
    assert run(["batch", "in.jsonl"]) == 1
    *reported, total, wrong, unknown = capfd.readouterr().err.splitlines()
    assert [line.split(":")[1] for line in reported] == ["1", "2", "3", "5001"]
    assert total == "tavik-characterize: 5,001 of 5,001 lines are bad"
    assert (wrong, unknown) == ("    5,000  wrong entry $.step", "        1  unknown entry")


def test_unusual_requests(capfd):
    requests = [{"step": "a"} | unusual for unusual in UNUSUAL]
    Path("in.jsonl").write_bytes(as_lines(requests))
    assert run(["batch", "in.jsonl"]) == 0
    out, err = capfd.readouterr()
    records = [mc.characterize_material(**without_nulls(request)) for request in requests]
    assert [json.loads(line) for line in out.splitlines()] == records
    warning = "warning: $.query_intent: 'corelation' is not read, but correlation is"
    assert err == f"in.jsonl:4: {warning}\n        1  {warning}\n"


def test_kept_entries_come_first(capfd):
    step = {"step": "a", "query_text": "NiO"}
    kept = [
        {"-id": 2**70, "query_text": "NiO"},
        {"-id": {"b": [1.50]}, "query_text": "NiO"},
    ]
    kept += [
        {"query_text": "NiO"},
        {"-id": "x"},
        {},
        {"-id": "\ud800", "query_text": "NiO"},
    ]
    lines = as_lines([step | {"-id": 2**70}, step | kept[1], step | {"-id": None}])
    lines += as_lines([{"step": 1, "-id": "x"}, 3, step | kept[5]])
    lines += as_lines(
        [{"-id": 1, "step": "a", "base_characterization": {"-id": 2, "evidence": []}}]
    )
    lines += b'{"step": "a", "-id": 1e999}\n'
    Path("in.jsonl").write_bytes(lines)
    words = ["in.jsonl", "-o", "out.jsonl", "--keep", "-id", "--keep", "query_text"]
    assert run(["batch", *words]) == 1
    answers = [json.loads(line) for line in Path("out.jsonl").read_bytes().splitlines()]
    for answer, first in zip(answers, [*kept, {"-id": 1}, {}], strict=True):
        assert [*answer.items()][: len(first) + 1] == [*first.items(), next(rest_of(answer, first))]
    assert answers[-2]["-id"] == 1
    assert run(["summary", "out.jsonl"]) == 0  # reads whatever batch writes


def rest_of(answer, first):
    return ((key, value) for key, value in answer.items() if key not in first)


MANY = 6000  # requests, of several blocks


@pytest.fixture
def many():
    """The requests of in.jsonl, some of them bad, and what the output holds in the end."""
    texts = [f"{text} {n}" for n in range(MANY // 4) for text in ("NiO", "\ud800 Fe2O3", "é", "x")]
    requests = [{"step": "scf", "query_text": text * 40, "id": n} for n, text in enumerate(texts)]
    requests[MANY // 2] = {"step": 1}
    Path("in.jsonl").write_bytes(as_lines(requests))
    Path("in.jsonl.gz").write_bytes(gzip.compress(as_lines(requests)))
    Path("in.jsonl.zst").write_bytes(zstd.compress(as_lines(requests)))
    assert subprocess.run([*BATCH, "in.jsonl", "-o", "out.jsonl"]).returncode == 1
    return Path("out.jsonl").read_bytes()


BATCH = [*COMMAND, "batch", "--keep", "id"]
OPENED = {"": open, ".gz": gzip.open, ".zst": zstd.open}


@pytest.mark.parametrize("suffix", OPENED)
def test_processes_and_compression_change_nothing(suffix, many, capfd):
    source, ours, theirs = f"in.jsonl{suffix}", f"one{suffix}", f"two{suffix}"
    assert subprocess.run([*BATCH, source, "-o", ours]).returncode == 1
    reported = capfd.readouterr()
    assert subprocess.run([*BATCH, source, "-o", theirs, "--jobs", "2"]).returncode == 1
    assert capfd.readouterr() == reported
    assert Path(ours).read_bytes() == Path(theirs).read_bytes()
    with OPENED[suffix](ours, "rb") as file:
        assert file.read() == many


def interrupted(*words, stop=signal.SIGKILL, lines=MANY - 1000):
    """A run that is stopped when its input has not ended yet; what it says."""
    source = Path("in.jsonl").read_bytes().splitlines(keepends=True)[:lines]

    def heed_interruptions():
        """What a shell starts in the background ignores them, and so would the command."""
        signal.signal(signal.SIGINT, signal.SIG_DFL)

    with subprocess.Popen(
        [*BATCH, "-", "-o", *words],
        stdin=subprocess.PIPE,
        stderr=subprocess.PIPE,
        preexec_fn=heed_interruptions,
    ) as batch:
        batch.stdin.write(b"".join(source))
        batch.stdin.flush()
        progress = Path(f"{words[0]}.part.progress")
        while not (progress.exists() and progress.read_bytes().count(b"\n") > 2):
            assert batch.poll() is None
            time.sleep(0.01)
        # Python misses an interruption that comes right before it waits for input.
        while batch.poll() is None:
            batch.send_signal(stop)
            with contextlib.suppress(subprocess.TimeoutExpired):
                batch.wait(5)
        return batch.returncode, batch.stderr.read().decode()


@pytest.mark.parametrize("jobs", ["1", "2"])
@pytest.mark.parametrize("name", ["new", "new.gz"])
@pytest.mark.parametrize("stop", [signal.SIGKILL, signal.SIGINT])
def test_a_run_that_was_stopped_is_gone_on_with(stop, name, jobs, many):
    status, said = interrupted(name, "--jobs", jobs, stop=stop)
    assert not Path(name).exists()
    if stop == signal.SIGINT:
        assert status == 130
        assert "tavik-characterize: interrupted; --resume goes on after " in said
    words = [*BATCH, "in.jsonl", "-o", name, "--resume"]
    assert subprocess.run(words).returncode == 1
    with OPENED[Path(name).suffix](name, "rb") as file:
        assert file.read() == many
    assert sorted(p.name for p in Path().glob("new*")) == [name]


def test_what_stands_behind_the_progress(many, capfd):
    """A power cut may leave less or more than was noted, and half a line of progress."""
    for cut in (0, 1, 1000, -1):
        interrupted("new")
        part, progress = Path("new.part"), Path("new.part.progress")
        part.write_bytes(part.read_bytes()[:cut])
        progress.write_bytes(progress.read_bytes()[:-10])
        assert subprocess.run([*BATCH, "in.jsonl", "-o", "new", "--resume"]).returncode == 1
        assert Path("new").read_bytes() == many
        Path("new").unlink()


def damaged(data):
    return bytes(10) + data[10:]


@pytest.mark.parametrize(
    ("spoil", "words", "message"),
    [
        ({}, "", "new.part: expected no unfinished run; --resume goes on with it"),
        ({"in.jsonl": b"x"}, "--resume", "in.jsonl: expected to begin with the "),
        ({"in.jsonl": b""}, "--resume", "in.jsonl: expected to begin with the "),
        ({"new.part": b"x" * 10**6}, "--resume", "new.part: expected what the earlier run wrote"),
        ({"new.part": damaged}, "--resume", "new.part: expected what the earlier run wrote"),
        ({"new.part.progress": None}, "--resume", "new.part: expected no such file"),
        ({"new.part.progress": b"x"}, "--resume", "new.part.progress: expected the progress of"),
        ({"new": b""}, "--resume", "new: expected a new file"),
        ({}, "--resume --keep query_text", "new.part: expected a run with the same --keep"),
    ],
)
def test_nothing_foreign_is_touched(spoil, words, message, many, capfd):
    interrupted("new")
    for name, data in spoil.items():
        if data is None:
            Path(name).unlink()
        else:
            Path(name).write_bytes(data(Path(name).read_bytes()) if callable(data) else data)
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


@pytest.mark.parametrize(
    ("source", "target", "message"),
    [
        (".", "new", ".: Is a directory"),
        ("nowhere", "new", "nowhere: No such file or directory"),
        ("cut.gz", "new", "cut.gz: Compressed file ended before the end-of-stream marker"),
        ("in.jsonl", "no/new", "no/new: No such file or directory"),
        ("in.jsonl", ".", ".: Is a directory"),
        ("in.jsonl", "in.jsonl", "in.jsonl: expected a new file"),
        ("in.jsonl", "/dev/full", "/dev/full: No space left on device"),
    ],
)
def test_what_cannot_be_read_or_written(source, target, message, capfd):
    Path("in.jsonl").write_bytes(as_lines(GOOD))
    Path("cut.gz").write_bytes(gzip.compress(as_lines(GOOD))[:-9])
    assert run(["batch", source, "-o", target]) == 2
    assert capfd.readouterr().err.startswith(f"tavik-characterize batch: {message}")
    assert {path.name for path in Path().iterdir()} == {"in.jsonl", "cut.gz"}


def test_output_that_is_the_input(capfd):
    Path("in.jsonl").write_bytes(as_lines(GOOD))
    with open("in.jsonl", "ab") as file:
        assert subprocess.run([*BATCH, "in.jsonl"], stdout=file).returncode == 2
    assert "standard output: expected another file than" in capfd.readouterr().err
    assert Path("in.jsonl").read_bytes() == as_lines(GOOD)


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
    Path("in.jsonl").write_bytes(as_lines(GOOD) * 5000)
    words = ["sh", "-c", '"$@" batch in.jsonl --jobs 2 | head -n 1', "sh", *COMMAND]
    done = subprocess.run(words, capture_output=True)
    assert (done.stdout.count(b"\n"), done.stderr) == (1, b"")
