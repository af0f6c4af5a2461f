"""The examples, run as a user runs them; the Dask job on a local cluster of two processes."""

import gzip
import json
import re
import subprocess
import sys
from pathlib import Path

import polars
import pytest
from backports import zstd
from reliability.generate import REQUESTS

from tavik_agent import material_characterization as mc

COMMAND = [sys.executable, "-m", "tavik_agent.characterize"]
EXAMPLES = Path(__file__).parents[1] / "examples"


@pytest.fixture(autouse=True)
def _known_tables():
    """The module's own tables stay in place here."""


def command(words, **options):
    done = subprocess.run(words, capture_output=True, text=True, timeout=120, **options)
    assert "Traceback" not in done.stderr, done.stderr
    return done


def run(example, *arguments):
    done = command([sys.executable, "-W", "error", EXAMPLES / example, *arguments])
    return done.stdout, done.returncode


def test_one_request():
    out, status = run("characterize_request.py", "Band", "gap of GaAs")
    assert status == 0
    assert json.loads(out) == mc.characterize_material(step="relax", query_text="Band gap of GaAs")


USUAL = {
    "occupations": "cold smearing",
    "spin": "none",
    "moments": "zero",
    "hubbard_u": False,
    "boundary": "periodic",
    "energy_unit": "eV",
    "ask": [],
}
NARROW = {"occupations": "narrow Gaussian smearing"}
U = {"hubbard_u": True}
CONTRADICTION = {
    "spin": "collinear",
    "moments": "noncollinear template",
    "ask": ["Collinear as stated, or as the magnetism suggests?"],
}
OPEN = [
    "Which elements is it made of?",
    "Is it magnetic?",
    "Is a Hubbard correction wanted?",
]


@pytest.mark.parametrize(
    ("query", "settings"),
    [
        ("AFM NiO", {"spin": "collinear", "moments": "antiferromagnetic template"} | NARROW | U),
        ("Collinear CrCl3 with SOC", CONTRADICTION | NARROW | U),
        ("Bands of fcc copper", {"occupations": "cold smearing"}),
        ("GaAs", {"occupations": "fixed"}),
        ("a new phase", {"spin": "collinear", "moments": "parallel", "ask": OPEN}),
    ],
)
def test_settings_of_a_request(query, settings, tmp_path):
    (tmp_path / "request.json").write_text(json.dumps({"step": "scf", "query_text": query}))
    out, status = run("settings_for_request.py", str(tmp_path / "request.json"))
    evidence = mc.characterize_material(step="scf", query_text=query)["evidence"]
    assert json.loads(out) == USUAL | settings | {"because": evidence}
    assert status == 0


JOB = "characterize_log_with_dask.py"
LOG = b"".join(
    json.dumps(
        {key: request[key] for key in request if key not in ("expect", "query")}
        | {"step": "scf", "query_text": request.get("query", "") + " long" * (n % 100)}
    ).encode()
    + b"\n"
    for n, request in enumerate(REQUESTS * 3)
)
BAD = b'x\n\n{"step": "a", "findings": 1}\n{"step": "\xff"}\n{"step": "no end", "query_text": 5}'


def test_dask_job_answers_as_batch_does(tmp_path):
    contents = {"log-0.jsonl": LOG + BAD, "log-1.jsonl.gz": gzip.compress(LOG + BAD)}
    contents |= {"log-2.jsonl.zst": zstd.compress(BAD + b"\n"), "log-3.jsonl": b""}
    for name, content in contents.items():
        (tmp_path / name).write_bytes(content)
    records = tmp_path / "records"
    words = (JOB, f"{tmp_path}/log-*", str(records))
    out, status = run(*words)
    parts = len(json.loads((records / "complete.json").read_text())["parts"])
    assert parts >= 6  # each large file that can be cut is
    lines = 2 * LOG.count(b"\n") + 15
    assert (out, status) == (f"{lines} lines in {parts} parts on 2 workers, 15 errors\n", 1)
    answers = b"".join(path.read_bytes() for path in sorted(records.glob("*.jsonl")))
    for name in contents:
        command([*COMMAND, "batch", name, "-o", f"{name}.out"], cwd=tmp_path)
    assert answers == b"".join((tmp_path / f"{name}.out").read_bytes() for name in contents)


DEADLY = """import os
from tavik_agent.characterize.answer import Answerer
Answerer.__init__ = lambda self, setting: os._exit(1) if "deadly" in setting.place else None"""


@pytest.mark.parametrize(
    ("words", "message"),
    [
        ("nowhere.jsonl new", "nowhere.jsonl"),
        ("no-*.jsonl new", "no-*.jsonl: no such file"),
        ("log new --workers 0", "at least one worker"),
        ("cut.gz new", "Compressed file ended before"),
        ("log log", "log: expected a new or empty folder"),
        ("log .", ".: expected a new or empty folder"),
        ("nosuch://log new", "nosuch"),
        ("deadly new --workers 1", "but all those workers died while running it"),
    ],
)
def test_dask_job_tells_what_is_wrong(words, message, tmp_path, monkeypatch):
    (tmp_path / "log").write_bytes(LOG[:1000])
    (tmp_path / "cut.gz").write_bytes(gzip.compress(LOG)[:500])
    (tmp_path / "deadly").write_bytes(LOG[:1000])
    (tmp_path / "sitecustomize.py").write_text(DEADLY)
    monkeypatch.setenv("PYTHONPATH", str(tmp_path))
    monkeypatch.setenv("DASK_DISTRIBUTED__SCHEDULER__ALLOWED_FAILURES", "0")
    done = command([sys.executable, EXAMPLES / JOB, *words.split()], cwd=tmp_path)
    assert done.returncode == 2
    assert message in done.stderr
    assert done.stderr.count("\n") == 1 + ("usage" in done.stderr)
    assert not (tmp_path / "new" / "complete.json").exists()


@pytest.mark.parametrize("kind", ["parquet", "ipc"])
def test_tables_of_polars(kind, tmp_path):
    # A column has one type.
    fit = [line for line in LOG.splitlines() if not re.search(rb'xyz|"element": \{', line)]
    requests = [json.loads(line) for line in fit]
    path = tmp_path / "requests"
    getattr(polars.DataFrame(requests, infer_schema_length=None), f"write_{kind}")(path)
    document = (EXAMPLES.parent / "docs" / "scale.md").read_text(encoding="utf-8")
    script = re.search(r"^```python\n(import polars.*?)^```", document, re.MULTILINE | re.DOTALL)[1]
    namespace = {}
    exec(script, namespace)
    table = getattr(polars, f"read_{kind}")(path)
    expected = [mc.characterize_material(**request) for request in requests]
    assert namespace["answer"](table).to_dicts() == expected
    assert [*table.iter_rows(named=True)] != requests  # nulls were filled in
