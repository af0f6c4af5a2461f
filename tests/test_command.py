"""The command line for one request: what it reads, what it shows, and what it says of mistakes."""

import inspect
import json
import re
import shlex
import subprocess
import sys
from importlib.metadata import version
from pathlib import Path
from typing import get_args

import jsonschema
import pytest
from reliability.generate import REQUESTS
from tavik_agent.characterization_types import (
    IntentComplexity,
    IntentCorrelation,
    IntentMagnetism,
)

from tavik_agent import material_characterization as mc
from tavik_agent.characterize import PACKAGE
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
    query = "defects associated with <GaN> and CsPbX3, by NPT"
    assert run(["explain", query]) == 0
    screen = capfd.readouterr().out
    assert 'noncollinear_template  otherwise unknown\n  "as[soc]iated" in the query' in screen
    assert screen.endswith("\nnot read as a material: CsPbX3\n")
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
        f'{{"note:smile:": {{"a": 1}}, "seen": "", "confidence": 0.5, {evidence}}}'
    )
    assert run(["--base", "base"]) == 0
    screen = " ".join(capfd.readouterr().out.split())
    assert screen.startswith("field label why note:smile: {'a': 1} seen - intent_driven false")
    assert screen.endswith(r" 0.5 evidence, in the order of the decisions 1 \x1b[2J\ud800")


def test_json_is_the_record(capfdbinary, monkeypatch):
    monkeypatch.setattr(requests, "characterize_material", lambda **given: given)
    query = "\ud800 — NiO"
    assert run(["--json", query]) == 0
    out = capfdbinary.readouterr().out
    assert json.loads(out) == {"step": "", "query_text": query}
    assert "—".encode() in out


def test_arguments_are_those_of_the_module():
    assert list(requests.ARGUMENTS) == list(inspect.signature(mc.characterize_material).parameters)


FULL = {"step": "scf", "step_params": {"element": {"Ni": 1}, "domain": {}}, "query_text": "x"}
FULL |= {"findings": [1], "query_intent": {"species": ["Ni"], "formula": "NiO"}}
IRON = {"element": [{"species": "Fe"}, {"species": "O"}]}
REPLACED = FULL | {"step": "relax", "query_text": "q", "findings": ["y", "z"]}
REPLACED |= {"step_params": IRON | {"domain": {}}}
REPLACED |= {"query_intent": {"species": ["Ni"], "formula": "Fe2O3"}}

UNITS = {"query_intent": {"units": {}}, "step_params": {"element": {"Ni": {}}}}
NULLS = {"step": "a", "findings": [None, "b"], "base_characterization": None}
NULLS |= {"query_intent": {"formula": None, "units": {"energy": None}, "species": None}}
NULLS |= {"step_params": {"element": {"Ni": {"species": None}, "O": None}, "atom": None}}


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
        (["--request=nulls", "q"], {"step": "a", "findings": ["b"], "query_text": "q"} | UNITS),
        (
            "--request=full --species=Fe,O --formula=Fe2O3 --step=relax --finding=y --finding=z q",
            REPLACED,
        ),
    ],
)
def test_arguments_of_the_call(words, expected, monkeypatch, capfd):
    monkeypatch.setattr(requests, "characterize_material", lambda **given: given)
    Path("full").write_text(json.dumps(FULL))
    Path("nulls").write_text(json.dumps(NULLS))
    Path("empty").write_text("{}")
    assert run(["--json", *(words.split() if isinstance(words, str) else words)]) == 0
    assert json.loads(capfd.readouterr().out) == expected


def assert_reported(output, message):
    assert output.out == ""
    assert output.err.startswith(f"tavik-characterize{message}")
    assert output.err.count("\n") == 1


@pytest.mark.parametrize(
    ("content", "message"),
    [
        (b'{"step": "a",\n "x" }', ":2:6: invalid JSON: Expecting ':' delimiter"),
        (b'{"step":\n"\xff"', ":2:2: expected UTF-8, not the byte 0xff"),
        (b'{"findings": ' + b"[" * 100_000, ":1: expected JSON that is nested less deeply"),
        (b'{"findings": [NaN]}', ":1: invalid JSON: NaN is no number"),
        (b'["step"]', ": $: expected object, got array"),
        (b"{}", ": $.step: expected the name of the planning step"),
        (b'{"step": null}', ": $.step: expected the name of the planning step"),
        (b'{"x\\u001b": 1}', r": $: unknown entry 'x\x1b'; expected step, step_params, query"),
        (b'{"step": 3}', ": $.step: expected str, got int"),
        (b'{"step": 3, "query_text": "\\ud800"}', ": $.step: expected str, got int"),
        (b'{"query_intent": []}', ": $.query_intent: expected object, got array"),
        (b'{"findings": "x"}', ": $.findings: expected array, got str"),
        (
            b'{"query_intent": {"species": ["Ni", 1]}}',
            ": $.query_intent.species[1]: expected str, got int",
        ),
        (
            b'{"previous_steps_params": {"a": {}, "b": {"atom": 1}}}',
            ': $.previous_steps_params["b"].atom: expected object, got int',
        ),
        (
            b'{"step": "a", "base_characterization": {"confidence": "high"}}',
            ": $.base_characterization.confidence: expected float, got str",
        ),
    ],
)
def test_input_error_in_a_file(content, message, capfd):
    Path("request").write_bytes(content)
    assert run(["--request", "request"]) == 2
    assert_reported(capfd.readouterr(), f": request{message}")


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
        ("--species=Fe;O x", ": --species: expected symbols, as \"Fe,O\", not 'Fe;O'"),
        ("bacth in.jsonl", ": no command 'bacth'; did you mean batch?"),
        ("batch", " batch: Missing argument 'IN'."),
        ("batch x --resume", " batch: --resume goes with -o OUT"),
        ("batch x --keep step", " batch: --keep step: an answer has an entry of that name"),
        ("batch x --keep error", " batch: --keep error: an answer has an entry of that name"),
        ("batch nowhere", " batch: nowhere: No such file or directory"),
        ("compare - -", " compare: standard input can be only one of"),
        ("compare a b c", " compare: Got unexpected extra argument (c)"),
    ],
)
def test_wrong_usage(words, message, capfd):
    assert run(words.split()) == 2
    assert_reported(capfd.readouterr(), message)


@pytest.mark.parametrize(
    ("words", "shown"),
    [
        (["help"], "Usage: tavik-characterize [OPTIONS] [QUERY]"),
        (["help", "batch"], "Usage: tavik-characterize batch [OPTIONS] IN"),
        (["compare", "-h"], "Usage: tavik-characterize compare "),
        (["--version"], f"tavik-characterize {version(PACKAGE)}\n"),
    ],
)
def test_help(words, shown, capfd):
    assert run(words) == 0
    assert capfd.readouterr().out.startswith(shown)


@pytest.mark.parametrize(
    ("words", "completed"),
    [("ba", "plain,batch\n"), ("batch --res", "plain,--resume\n"), ("batch x", "file,x\n")],
)
def test_completion(words, completed, capfd, monkeypatch):
    monkeypatch.setenv("_TAVIK_CHARACTERIZE_COMPLETE", "bash_complete")
    monkeypatch.setenv("COMP_WORDS", f"tavik-characterize {words}")
    monkeypatch.setenv("COMP_CWORD", str(len(words.split())))
    assert run([]) == 0
    assert capfd.readouterr().out == completed


WORDS = {"correlation": get_args(IntentCorrelation), "magnetism": get_args(IntentMagnetism)}
WORDS |= {"complexity_hint": get_args(IntentComplexity)}


def test_schemas(capfd):
    validators = {}
    for kind in ("request", "intent", "record"):
        assert run(["schema", kind]) == 0
        schema = json.loads(capfd.readouterr().out)
        jsonschema.Draft202012Validator.check_schema(schema)
        assert "$ref" not in json.dumps(schema)
        assert all(entry["description"] for entry in schema["properties"].values())
        validators[kind] = jsonschema.Draft202012Validator(schema)
    for row in REQUESTS:
        inputs = {key: value for key, value in row.items() if key not in ("expect", "query")}
        intent = inputs.get("query_intent", {})
        if not {intent[key] for key in WORDS if key in intent} <= {None}.union(*WORDS.values()):
            continue  # another spelling, or a word that decides nothing: no model should send it
        request = {"step": "a", "query_text": row.get("query")} | inputs
        validators["request"].validate(request)
        validators["intent"].validate(request.get("query_intent", {}))
        validators["record"].validate(mc.characterize_material(**requests.check(request, "")))
    for wrong in ({"correlation": "hubbard"}, {"corelation": "hybrid"}, {"species": "Fe"}):
        assert not validators["intent"].is_valid(wrong)
        assert not validators["request"].is_valid({"step": "a", "query_intent": wrong})
    assert not validators["request"].is_valid({"query_text": "NiO"})


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
    assert_reported(capfd.readouterr(), f": {message}")
