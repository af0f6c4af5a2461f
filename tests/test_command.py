"""The command line for one request: what it reads, what it shows, and what it says of mistakes."""

import inspect
import json
import re
import shlex
import subprocess
import sys
from pathlib import Path

import pytest

from tavik_agent import material_characterization as mc
from tavik_agent.characterize import request as requests
from tavik_agent.characterize.command import run

COMMAND = [sys.executable, "-m", "tavik_agent.characterize"]
README = (Path(__file__).parents[1] / "README.md").read_text(encoding="utf-8")

SCREEN = """\
Relax\\x1b NiO in eV

field                  label     why
step                   RELAX
structure_mode         unknown
structure_archetype    unknown
electronic_class       insulator NiO in DFTU_SENSITIVE_FORMULAS
magnetic_class         unknown
correlation_class      plain_dft intent complexity_hint
material_family        oxide     formula NiO
                                 O among the species
species                Fe, O     step_params.element
formula_hint           NiO       "NiO" in the query
requested_energy_unit  eV        "eV" in the query
explicit_spin_mode     -
intent_complexity      basic
intent_correlation     -
intent_magnetism       -
intent_driven          true

confidence  ████████████████░░░░  0.8

   evidence, in the order of the decisions
1  element definitions declare species ['Fe', 'O']
2  formula hint NiO
3  electronic class=insulator
4  correlation class=plain_dft
5  user query flagged as basic (LLM intent) — {}
6  material family=oxide
7  query requested eV energy semantics (prose fallback)
"""
SUPPRESSED = "complex-material heuristics suppressed"
REQUEST = ["--step", "relax", "--species", "fe, O", "--complexity", "basic", "Relax\x1b NiO in eV"]


@pytest.fixture(autouse=True)
def _in_a_folder_of_its_own(tmp_path, monkeypatch):
    monkeypatch.chdir(tmp_path)


def test_screen_in_a_pipe(capfd, monkeypatch):
    monkeypatch.setenv("COLUMNS", "40")
    assert run(REQUEST) == 0
    assert capfd.readouterr() == (SCREEN.format(SUPPRESSED), "")


def test_screen_in_the_readme(capfd):
    shown = re.search(r"^\$ tavik-characterize (.*)\n([^`]*)```$", README, re.MULTILINE)
    subprocess.run([*COMMAND, *shlex.split(shown[1])], check=True)
    assert capfd.readouterr().out == shown[2]


@pytest.mark.parametrize("width", [30, 50, 80])
def test_screen_on_a_terminal(width, on_terminal):
    screen = on_terminal([*COMMAND, *REQUEST], width)
    assert "\x1b[1;35mplain_dft" in screen
    assert "\x1b[1;32mNiO" in screen
    lines = re.sub(r"\x1b\[[\d;]*m", "", screen).split("\r\n")
    assert max(map(len, lines)) <= width
    assert "".join("".join(lines).split()).count(SUPPRESSED.replace(" ", "")) == 1


def test_explanation_as_screen_page_and_json(capfd):
    query = "defects associated with <GaN>"
    assert run(["explain", query]) == 0
    screen = capfd.readouterr().out
    assert 'noncollinear_template  otherwise unknown\n  "as[soc]iated" in the query' in screen
    assert run(["explain", "--json", "--html", "page.html", query]) == 0
    cause = json.loads(capfd.readouterr().out)["fields"]["magnetic_class"]["causes"][0]
    assert (cause["text"], cause["within"]) == ("soc", "associated")
    page = Path("page.html").read_text()
    assert "&lt;" in page
    assert "otherwise unknown" in page


def test_lookup_says_how_words_are_read(capfd):
    assert run(["lookup", "rutile", "irom"]) == 0
    screen = capfd.readouterr().out
    assert "  phrase: TiO2\n" in screen
    assert "  spelt like it: iron" in screen
    assert run(["lookup", "--json", "NiO"]) == 0
    assert json.loads(capfd.readouterr().out)[0]["alone"]["formula_hint"] == "NiO"


def test_odd_values_in_a_record(capfd):
    evidence = r'"evidence": ["\u001b[2J\ud800"]'
    Path("base").write_text(
        f'{{"note:smile:": {{"a": 1}}, "seen": null, "confidence": NaN, {evidence}}}'
    )
    assert run(["--base", "base"]) == 0
    screen = " ".join(capfd.readouterr().out.split())
    assert screen.startswith("field label why note:smile: {'a': 1} seen null intent_driven false")
    assert screen.endswith(r" nan evidence, in the order of the decisions 1 \x1b[2J\ud800")


def test_json_is_the_record(capfdbinary, monkeypatch):
    monkeypatch.setattr(requests, "characterize_material", lambda **given: given)
    query = "\ud800 — NiO"
    assert run(["--json", query]) == 0
    out = capfdbinary.readouterr().out
    assert json.loads(out) == {"step": "", "query_text": query}
    assert "—".encode() in out


def test_arguments_are_those_of_the_module():
    assert list(requests.ARGUMENTS) == list(inspect.signature(mc.characterize_material).parameters)


FULL = {"step": "scf", "step_params": {"element": {"Ni": 1}, "domain": None}, "query_text": "x"}
FULL |= {"findings": [1], "query_intent": {"species": ["Ni"], "formula": "NiO"}}
IRON = {"element": [{"species": "Fe"}, {"species": "O"}]}
REPLACED = FULL | {"step": "relax", "query_text": "q", "findings": ["y", "z"]}
REPLACED |= {"step_params": IRON | {"domain": None}}
REPLACED |= {"query_intent": {"species": ["Ni"], "formula": "Fe2O3"}}


@pytest.mark.parametrize(
    ("words", "expected"),
    [
        (["a  b"], {"step": "", "query_text": "a  b"}),
        (["a", "b"], {"step": "", "query_text": "a b"}),
        (["--", "batch"], {"step": "", "query_text": "batch"}),
        (["compare NiO"], {"step": "", "query_text": "compare NiO"}),
        (["--species", "Fe, O"], {"step": "", "step_params": IRON}),
        (["--energy-unit=ev"], {"step": "", "query_intent": {"units": {"energy": "eV"}}}),
        (["--formula="], {"step": "", "query_intent": {"formula": ""}}),
        (["--request=full", "--base=empty", "--species= "], FULL),
        (
            "--request=full --species=Fe,O --formula=Fe2O3 --step=relax --finding=y --finding=z q",
            REPLACED,
        ),
    ],
)
def test_arguments_of_the_call(words, expected, monkeypatch, capfd):
    monkeypatch.setattr(requests, "characterize_material", lambda **given: given)
    Path("full").write_text(json.dumps(FULL))
    Path("empty").write_text("{}")
    assert run(["--json", *(words.split() if isinstance(words, str) else words)]) == 0
    assert json.loads(capfd.readouterr().out) == expected


def assert_told(output, message):
    assert output.out == ""
    assert output.err.startswith(f"tavik-characterize{message}")
    assert output.err.count("\n") == 1


@pytest.mark.parametrize(
    ("content", "message"),
    [
        (b'{"step": "a",\n "x" }', ":2:6: invalid JSON: Expecting ':' delimiter"),
        (b'{"step":\n"\xff"', ":2:2: expected UTF-8, not the byte 0xff"),
        (b"[" * 100_000, ":1: expected JSON that is nested less deeply"),
        (b"1" * 5000, ":1: Exceeds the limit (4300 digits)"),
        (b'["step"]', ": expected an object, not ['step']"),
        (b"{}", ': expected an entry "step"'),
        (b'{"x\\u001b": 1}', r": 'x\x1b' is no argument; expected step, step_params"),
        (b'{"step": 3}', ": step: expected a string, not 3"),
        (b'{"query_intent": []}', ": query_intent: expected an object, not []"),
        (b'{"findings": "x"}', ": findings: expected a list, not 'x'"),
        (
            b'{"query_intent": {"species": "NiO"}}',
            ": query_intent.species: expected a list of strings, not 'NiO'",
        ),
        (
            b'{"step": "a", "base_characterization": {"confidence": "high"}}',
            ": the values give ValueError: could not convert string to float: 'high'",
        ),
    ],
)
def test_trouble_in_a_file(content, message, capfd):
    Path("request").write_bytes(content)
    assert run(["--request", "request"]) == 2
    assert_told(capfd.readouterr(), f": request{message}")


@pytest.mark.parametrize(
    ("words", "message"),
    [
        ("", ": expected a request in words or --request FILE; see --help"),
        ("--reqest x", ": No such option '--reqest'. Did you mean '--request'?"),
        ("--request nowhere", ": nowhere: No such file or directory"),
        ("--request= NiO", ": : No such file or directory"),
        ("--magnetism afm x", ": Invalid value for '--magnetism': 'afm' is not one of 'non-coll"),
        ("--request - --base -", ": standard input can be only one of"),
        ("--base /", ": /: Is a directory"),
        ("batch", " batch: Missing argument 'IN.jsonl'."),
        ("batch x --resume", " batch: --resume goes with -o OUT.jsonl"),
        ("batch nowhere", " batch: nowhere: No such file or directory"),
        ("compare - -", " compare: standard input can be only one of"),
        ("compare a b c", " compare: Got unexpected extra argument (c)"),
    ],
)
def test_wrong_usage(words, message, capfd):
    assert run(words.split()) == 2
    assert_told(capfd.readouterr(), message)


WITHOUT_CLICK = """
import sys
sys.modules["click"] = None
from tavik_agent.characterize.__main__ import main
main()
"""
INSTALL = "pip install 'tavik-agent-material-characterization[cli]'"


@pytest.mark.parametrize(
    ("words", "message"),
    [
        ([sys.executable, "-c", WITHOUT_CLICK], f"the library click is missing: {INSTALL}\n"),
        (["sh", "-c", '"$@" NiO > /dev/full', "sh", *COMMAND], "standard output: No space left"),
        (["sh", "-c", '"$@" NiO >&-', "sh", *COMMAND], "expected standard input and output"),
    ],
    ids=["library", "disk", "output"],
)
def test_nothing_to_run_on(words, message, capfd, monkeypatch):
    monkeypatch.delenv("PYTHONUNBUFFERED", raising=False)
    assert subprocess.run(words).returncode == 2
    assert_told(capfd.readouterr(), f": {message}")
