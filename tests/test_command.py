"""The command line for one request: what it reads, what it shows, and what it says of mistakes."""

import gzip
import inspect
import json
import re
import shlex
import subprocess
import sys
from importlib.metadata import version
from pathlib import Path
from typing import get_type_hints

import jsonschema
import pytest
from reliability.generate import REQUESTS
from tavik_agent.characterization_types import QueryIntent

from tavik_agent import material_characterization as mc
from tavik_agent.characterize import PACKAGE
from tavik_agent.characterize import request as requests
from tavik_agent.characterize.answer import Answerer
from tavik_agent.characterize.command import run
from tavik_agent.characterize.exchange import Block, Setting
from tavik_agent.characterize.schema import KINDS, schema

COMMAND = [sys.executable, "-m", "tavik_agent.characterize"]
README = (Path(__file__).parents[1] / "README.md").read_text(encoding="utf-8")
SUPPRESSED = "complex-material heuristics suppressed"
REQUEST = ["--step", "relax", "--species", "fe, O", "--complexity", "basic", "Relax\x1b NiO in eV"]


pytestmark = pytest.mark.usefixtures("own_folder")


def test_screen_in_a_pipe(capfd, monkeypatch):
    monkeypatch.setenv("COLUMNS", "40")
    shown = re.search(r"^\$ tavik-characterize (.*)\n([^`]*)```$", README, re.MULTILINE)
    subprocess.run([*COMMAND, *shlex.split(shown[1])], check=True)
    assert capfd.readouterr() == (shown[2], "")


@pytest.mark.parametrize("width", [30, 50, 80])
def test_screen_on_a_terminal(width, on_terminal):
    screen = on_terminal([*COMMAND, *REQUEST], width)
    assert "\x1b[1;35mplain_dft" in screen
    lines = re.sub(r"\x1b\[[\d;]*m", "", screen).split("\r\n")
    assert lines[0] == r"Relax\x1b NiO in eV"
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
    assert "&lt;" in Path("page.html").read_text()


def test_lookup_says_how_words_are_read(capfd):
    assert run(["lookup", "rutile", "irom"]) == 0
    screen = capfd.readouterr().out
    assert "  phrase: TiO2\n" in screen
    assert "  spelt like it: iron" in screen
    assert run(["lookup", "--json", "NiO"]) == 0
    assert json.loads(capfd.readouterr().out)[0]["alone"]["formula_hint"] == "NiO"


def test_odd_values_in_a_record(capfd):
    base = {"note:smile:": {"a": 1}, "seen": "", "confidence": 0.5, "evidence": ["\x1b[2J\ud800"]}
    Path("base").write_text(json.dumps(base))
    assert run(["--base", "base"]) == 0
    screen = " ".join(capfd.readouterr().out.split())
    assert screen.startswith("field label why note:smile: {'a': 1} seen - intent_driven false")
    assert screen.endswith(r" 0.5 evidence, in the order of the decisions 1 \x1b[2J\ud800")


IRON = {"element": [{"species": "Fe"}, {"species": "O"}]}
FULL = {"step": "scf", "step_params": {"element": {"Ni": 1}, "domain": {}}, "query_text": "x"}
FULL |= {"findings": [1], "query_intent": {"species": ["Ni"], "formula": "NiO"}}
TYPED = "--request=full --species=Fe,O --formula=Fe2O3 --step=relax --finding=y --finding=z q"
REPLACED = {"step": "relax", "query_text": "q", "findings": ["y", "z"]}
REPLACED |= {"step_params": IRON | {"domain": {}}}
REPLACED |= {"query_intent": {"species": ["Ni"], "formula": "Fe2O3"}}
NULLS = {"step": "a", "findings": [None, "b"], "base_characterization": None}
NULLS |= {"query_intent": {"formula": None, "units": {"energy": None}, "species": None}}
NULLS |= {"step_params": {"element": {"Ni": {"species": None}, "O": None}, "atom": None}}
UNITS = {"query_intent": {"units": {}}, "step_params": {"element": {"Ni": {}}}}


@pytest.mark.parametrize(
    ("words", "expected"),
    [
        (["a  — \ud800"], {"step": "", "query_text": "a  — \ud800"}),
        (["a", "b"], {"step": "", "query_text": "a b"}),
        (["--", "batch"], {"step": "", "query_text": "batch"}),
        (["compare NiO"], {"step": "", "query_text": "compare NiO"}),
        (["--species", "Fe, O"], {"step": "", "step_params": IRON}),
        (["--energy-unit=ev"], {"step": "", "query_intent": {"units": {"energy": "eV"}}}),
        (["--formula="], {"step": "", "query_intent": {"formula": ""}}),
        (["--request=full", "--base=empty", "--species= "], FULL),
        (["--request=nulls", "q"], {"step": "a", "findings": ["b"], "query_text": "q"} | UNITS),
        (TYPED.split(), REPLACED),
    ],
)
def test_arguments_of_the_call(words, expected, monkeypatch, capfd):
    monkeypatch.setattr(requests, "characterize_material", lambda **given: given)
    Path("full").write_text(json.dumps(FULL))
    Path("nulls").write_text(json.dumps(NULLS))
    Path("empty").write_text("{}")
    assert run(["--json", *words]) == 0
    out = capfd.readouterr().out
    assert json.loads(out) == expected
    assert r"\u2014" not in out


LINE = b'{"step": "a"}\n'


def assert_reported(output, message):
    assert output.out == ""
    assert output.err.startswith(f"tavik-characterize{message}")
    assert output.err.count("\n") == 1


@pytest.mark.parametrize(
    ("words", "message"),
    [
        ("", ": expected a request in words or --request FILE; see --help"),
        ("--reqest x", ": No such option '--reqest'. Did you mean '--request'?"),
        ("--request= NiO", ": : No such file or directory"),
        ("--magnetism afm x", ": Invalid value for '--magnetism': 'afm' is not one of 'non-coll"),
        ("--request - --base -", ": standard input can be only one of"),
        ("--base /", ": /: Is a directory"),
        ("--species=Fe;O x", ": --species: expected symbols, as \"Fe,O\", not 'Fe;O'"),
        ("--species=Fee x", ": --species: expected symbols, as \"Fe,O\", not 'Fee'"),
        ("--base in.jsonl x", ": in.jsonl: expected a record, which has a confidence"),
        ("explain NiO --html /dev/zero", " explain: /dev/zero: expected a new file, or a page"),
        ("explain NiO --json --html -", " explain: standard output can be only one of --json"),
        ("batch x --keep \udcff", " batch: --keep: expected UTF-8"),
        ("schema", " schema: Missing argument '{request|intent|record}'. Choose from: request, "),
        ("bacth in.jsonl", ": no command 'bacth'; did you mean batch?"),
        ("batch x --resume", " batch: --resume goes with -o OUT"),
        ("batch x --keep step", " batch: --keep step: an answer has an entry of that name"),
        ("batch nowhere -o new", " batch: nowhere: No such file or directory"),
        ("batch . -o new", " batch: .: Is a directory"),
        ("batch cut.gz -o new", " batch: cut.gz: Compressed file ended before the end-of-stream"),
        ("batch in.jsonl -o no/new", " batch: no/new: No such file or directory"),
        ("batch in.jsonl -o .", " batch: .: Is a directory"),
        ("batch in.jsonl -o in.jsonl", " batch: in.jsonl: expected a new file"),
        ("batch in.jsonl -o /dev/full", " batch: /dev/full: No space left on device"),
        ("compare - -", " compare: standard input can be only one of"),
    ],
)
def test_wrong_usage(words, message, capfd):
    Path("in.jsonl").write_bytes(LINE)
    Path("cut.gz").write_bytes(gzip.compress(LINE)[:-9])
    assert run(words.split()) == 2
    assert_reported(capfd.readouterr(), message)
    assert {path.name for path in Path().iterdir()} == {"in.jsonl", "cut.gz"}


@pytest.mark.parametrize(
    ("words", "shown"),
    [
        ("help", "Usage: tavik-characterize [OPTIONS] [QUERY]"),
        ("help batch", "Usage: tavik-characterize batch [OPTIONS] IN"),
        ("batch -h", "Usage: tavik-characterize batch [OPTIONS] IN"),
        ("--version", f"tavik-characterize {version(PACKAGE)}\n"),
    ],
)
def test_help(words, shown, capfd):
    assert run(words.split()) == 0
    assert capfd.readouterr().out.startswith(shown)


@pytest.mark.parametrize(
    ("words", "completed"), [("ba", "plain,batch"), ("batch --res", "plain,--resume")]
)
def test_completion(words, completed, capfd, monkeypatch):
    monkeypatch.setenv("_TAVIK_CHARACTERIZE_COMPLETE", "bash_complete")
    monkeypatch.setenv("COMP_WORDS", f"tavik-characterize {words}")
    monkeypatch.setenv("COMP_CWORD", str(len(words.split())))
    assert run([]) == 0
    assert capfd.readouterr().out == f"{completed}\n"


def test_schemas(capfd):
    validators = {}
    for kind in KINDS:
        assert run(["schema", kind]) == 0
        text = capfd.readouterr().out
        assert "$ref" not in text
        assert all(entry["description"] for entry in json.loads(text)["properties"].values())
        validators[kind] = jsonschema.Draft202012Validator(json.loads(text))
        validators[kind].check_schema(validators[kind].schema)
    for row in REQUESTS:
        inputs = {key: row[key] for key in row if key not in ("expect", "query")}
        request = {"step": "a", "query_text": row.get("query")} | inputs
        validators["record"].validate(mc.characterize_material(**request))
    validators["intent"].validate({"correlation": "dft+u", "magnetism": None, "formula": "NiO"})
    for wrong in ({"correlation": "hubbard"}, {"corelation": "hybrid"}, {"species": "Fe"}):
        assert not validators["intent"].is_valid(wrong)
        assert not validators["request"].is_valid({"step": "a", "query_intent": wrong})
    assert not validators["record"].is_valid({"step": "a"})
    arguments = inspect.signature(mc.characterize_material).parameters
    assert [*validators["request"].schema["properties"]] == [*arguments]


PARAMETERS = {"element": [{"species": "Ni"}], "atom": {"xyz": "x", "fracxyz": [["Ni", 0]]}}
COMPLETE = {
    "step": "a",
    "step_params": PARAMETERS,
    "findings": ["x"],
    "planner_manifest": {"purpose": "x", "notes": ["y"]},
    "previous_steps_params": {"b": {"domain": {"latvec": [[1.5]]}}, "c": {"element": {"Ni": 1}}},
    "base_characterization": mc.characterize_material(step="a", query_text="NiO in eV"),
    "query_intent": dict.fromkeys(get_type_hints(QueryIntent), "x")
    | {"species": ["Ni"], "units": {"energy": "eV"}},
}


def odd(value):
    """The value with one thing in it replaced, at any depth."""
    yield from (None, 1, 0.5, True, "x", [], {}, [None])
    if isinstance(value, dict):
        yield {}
        yield from (value | {key: other} for key in value for other in odd(value[key]))
    if isinstance(value, list):
        yield from ([*value[:n], other] for n in range(len(value)) for other in odd(value[n]))


def test_schema_and_batch_take_the_same_requests():
    """But for the words of the intent and of an earlier record, which are as free as any text."""
    text = json.dumps(schema("request"))
    free = json.loads(text, object_hook=lambda o: {key: o[key] for key in o if key != "enum"})
    is_valid = jsonschema.Draft202012Validator(free).is_valid
    odd_requests = [*odd(COMPLETE)]
    lines = b"".join(json.dumps(request).encode() + b"\n" for request in odd_requests)
    answers = Answerer(Setting("")).block(Block(1, lines)).data.splitlines()
    taken = [b'{"error"' not in answer for answer in answers]
    assert [is_valid(request) for request in odd_requests] == taken
    assert {*taken} == {True, False}


WITHOUT_CLICK = """import sys; sys.modules["click"] = None
from tavik_agent.characterize.__main__ import main; main()"""
INSTALL = "pip install 'tavik-agent-material-characterization[cli]'"


@pytest.mark.parametrize(
    ("script", "message"),
    [
        (f"{sys.executable} -c '{WITHOUT_CLICK}'", f": the library click is missing: {INSTALL}\n"),
        ('"$@" NiO > /dev/full', ": standard output: No space left"),
        ('"$@" NiO >&-', ": expected standard input and output"),
        ('"$@" batch in.jsonl >> in.jsonl', " batch: standard output: expected another file than"),
    ],
)
def test_nothing_to_write_to(script, message, capfd, monkeypatch):
    monkeypatch.delenv("PYTHONUNBUFFERED", raising=False)
    Path("in.jsonl").write_bytes(LINE)
    assert subprocess.run(["sh", "-c", script, "sh", *COMMAND]).returncode == 2
    assert_reported(capfd.readouterr(), message)
    assert Path("in.jsonl").read_bytes() == LINE
