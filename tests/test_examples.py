"""The examples, run as a user runs them; the Dask job on a local cluster of two processes."""

import json
import subprocess
import sys
from pathlib import Path

import pytest

from tavik_agent import material_characterization as mc

EXAMPLES = Path(__file__).parents[1] / "examples"


@pytest.fixture(autouse=True)
def _known_tables():
    """The module's own tables stay in place here."""


def run(example, *arguments):
    command = [sys.executable, "-W", "error", EXAMPLES / example, *arguments]
    done = subprocess.run(command, capture_output=True, text=True, timeout=120, check=False)
    assert "Traceback" not in done.stderr, done.stderr
    return done.stdout, done.returncode


def test_one_request():
    out, status = run("characterize_request.py", "Band", "gap of GaAs")
    assert status == 0
    assert json.loads(out) == mc.characterize_material(step="relax", query_text="Band gap of GaAs")


def test_typed_planner_step():
    out, status = run("typed_planner_step.py")
    choices = "fixed occupations, collinear, moments from a template, +U; energies in eV"
    assert out.splitlines() == [
        f"RELAX NiO: {choices}",
        f"BANDS NiO: {choices}",
        "by formula alone: insulator; listed as correlated: True",
    ]
    assert status == 0


BAD = {
    b"not JSON": "JSONDecodeError",
    b"": "JSONDecodeError",
    b'"a text"': "TypeError",
    b'{"query_text": "NiO"}': "TypeError",  # no step
    b'{"step": "scf", "query_text": 5}': "AttributeError",
    b'{"step": "\xff"}': "UnicodeEncodeError",
}


def test_dask_job(tmp_path):
    good = [{"step": f"{n}", "query_text": "Relax Fe2O3"} for n in range(600)]
    good[300]["query_text"] = "x" * 20_000  # longer than the blocks
    lines = [json.dumps(request).encode() for request in good]
    (tmp_path / "log-0.jsonl").write_bytes(b"\n".join([*lines[:400], *BAD]) + b"\n")
    (tmp_path / "log-1.jsonl").write_bytes(b"\n".join(lines[400:]))  # its last line has no end
    out, status = run(
        "characterize_log_with_dask.py",
        f"{tmp_path}/log-*.jsonl",
        f"{tmp_path}/records",
        "--block=4KiB",
    )
    assert (out, status) == (f"606 lines on 2 workers, {len(BAD)} errors\n", 1)
    parts = [path.read_text() for path in sorted((tmp_path / "records").iterdir())]
    found = [json.loads(line) for line in "".join(parts).splitlines()]
    failed = [answer["error"] for answer in found[400 : 400 + len(BAD)]]
    assert found[:400] + found[400 + len(BAD) :] == [mc.characterize_material(**r) for r in good]
    assert [error["message"].split(":")[0] for error in failed] == list(BAD.values())
    written = [error["text"].encode(errors="surrogateescape") for error in failed]
    assert written == list(BAD)
    assert {error["file"] for error in failed} == {f"{tmp_path}/log-0.jsonl"}
