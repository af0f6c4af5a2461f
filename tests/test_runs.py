"""Runs summed up and compared, on the screen and as a page."""

import json
import re
import resource
from pathlib import Path

import pytest

from tavik_agent.characterize.command import run
from tavik_agent.characterize.unrecognised import candidates

METAL = {"step": "SCF", "electronic_class": "metal", "species": []}
METAL |= {"evidence": [], "confidence": 0.4}
OXIDE = METAL | {"electronic_class": "unknown", "species": ["Ni", "O"], "evidence": ["x"]}
FAILED = {"error": {"line": 1, "kind": "invalid JSON", "message": "why"}}
FAILED_ELSEWHERE = {"error": {"message": "why", "file": "log", "text": "x"}}


pytestmark = pytest.mark.usefixtures("own_folder")


def write(**files):
    for name, values in files.items():
        lines = [json.dumps(value) for value in values]
        Path(f"{name}.jsonl").write_text("".join(f"{line}\n" for line in lines))


def shown(capfd, *words, status=0):
    assert run(words) == status
    out, err = capfd.readouterr()
    assert err == ""
    return [re.sub(" +", " ", line) for line in out.splitlines()]


CHANGES = """\
2 of 4 requests changed
2 only in b.jsonl

electronic_class, from to 1
metal unknown 1

species, from to 1
- Ni, O 1

error, from to 1
why answered 1

2 examples
line 2 SCF second
 electronic_class metal -> unknown
 species - -> Ni, O
line 3 SCF
 error why -> answered"""


AS_BEFORE = METAL | {"confidence": 1, "evidence": ["x"], "note": ""}


@pytest.mark.parametrize(
    ("before", "after", "expected"),
    [
        ([METAL, FAILED], [AS_BEFORE, FAILED_ELSEWHERE], "0 of 2 requests changed"),
        ([METAL], [], "0 of 0 requests changed\n1 only in a.jsonl"),
        ([OXIDE, METAL, FAILED, METAL], [OXIDE, OXIDE, *[METAL] * 4], CHANGES),
    ],
)
def test_compare(before, after, expected, capfd):
    requests = [{"query_text": text} for text in ("first", "second", 3, None)]
    write(a=before, b=after, requests=requests)
    words = ["compare", "a.jsonl", "b.jsonl", "--requests", "requests.jsonl"]
    assert shown(capfd, *words, status="\n" in expected) == expected.splitlines()


def kept(number, record):
    return {"query_text": f"text {number}", "id": {"n": number}} | record


def test_lines_are_matched_by_the_kept_id(capfd):
    after = [kept(4, METAL), kept(2, METAL), kept(5, METAL), kept(1, OXIDE), kept(2, FAILED)]
    write(a=[FAILED, *(kept(n, METAL) for n in (1, 2, 2, 3, 4))], b=[FAILED, *after])
    out = shown(capfd, "compare", "a.jsonl", "b.jsonl", status=1)
    assert out[:3] == ["2 of 5 requests changed", "1 only in a.jsonl", "1 only in b.jsonl"]
    assert out[-5:] == [
        "id {'n': 1}, line 2 SCF text 1",
        " electronic_class metal -> unknown",
        " species - -> Ni, O",
        "id {'n': 2}, line 4 SCF text 2",
        " error answered -> why",
    ]


def test_examples_show_each_change_before_any_twice(capfd):
    write(a=[METAL] * 100, b=[OXIDE] * 99 + [METAL | {"step": "RELAX"}])
    out = shown(capfd, "compare", "a.jsonl", "b.jsonl", status=1)
    examples = [int(line.split()[1]) for line in out if line.startswith("line")]
    assert examples == [*range(1, 20), 100]
    out = shown(capfd, "compare", "a.jsonl", "b.jsonl", "--all", status=1)
    assert "100 examples" in out
    assert sum(line.startswith("line") for line in out) == 100


@pytest.mark.parametrize("command", ["compare", "summary"])
@pytest.mark.parametrize(
    ("line", "message"),
    [
        ("x", ":2:1: invalid JSON: Expecting value"),
        ('{"step": "a"}', ":2: expected a record or an error object"),
        ('{"id": 1, "error": 2}', ":2: expected a record or an error object"),
    ],
)
def test_a_line_that_is_no_answer(command, line, message, capfd):
    Path("a.jsonl").write_text(f"{json.dumps(METAL)}\n{line}\n")
    assert run([command, *["a.jsonl"] * (1 + (command == "compare"))]) == 2
    assert capfd.readouterr() == ("", f"tavik-characterize {command}: a.jsonl{message}\n")


TEXTS = ["MAPbI3 bands", "determine zeolite bands", "a zeolite", "determine NiO", None]
RECORDS = [METAL, METAL, METAL | {"confidence": 1.0}, OXIDE, FAILED]
FROM_A_FILE = [{"query_text": text} for text in TEXTS]


@pytest.mark.parametrize("texts", ["kept", "requests", "unknown"])
def test_summary(texts, capfd):
    requests = FROM_A_FILE if texts == "kept" else [{}] * len(RECORDS)
    write(run=[request | record for request, record in zip(requests, RECORDS, strict=True)])
    write(requests=FROM_A_FILE)
    options = ["--requests", "requests.jsonl"] if texts == "requests" else []
    out = shown(capfd, "summary", "run.jsonl", *options)
    rows = [re.sub(r"( \d+\.\d%)? [█░]+$", "", line) for line in out]
    start = rows.index("electronic_class")
    assert rows[start + 1 :][:4] == ["metal 3", "unknown 1", "semiconductor 0", "insulator 0"]
    assert out[start + 1] == "metal 3 75.0% ██████████████████████░░░░░░░░"
    expected = {"run.jsonl: 5 lines", "electronic_class 1", "species 3", "invalid JSON 1"}
    assert expected | {"mean confidence 0.55"} <= {*rows}
    if texts == "unknown":
        assert "--requests" in rows[-1]
    else:
        assert rows[-3:] == ["not recognised, in requests without species", "zeolite 2", "MAPbI3 1"]


def test_summary_of_other_requests(capfd):
    write(run=RECORDS, requests=FROM_A_FILE[1:])
    assert run(["summary", "run.jsonl", "--requests", "requests.jsonl"]) == 2
    assert "run.jsonl: expected as many lines as in requests.jsonl" in capfd.readouterr().err


@pytest.mark.parametrize(
    ("text", "found"),
    [
        ("Polarons (TiO₂).", "TiO2"),
        (r"$\mathrm{LiFePO_4}$ or BaTiO<sub>3</sub>-based", "BaTiO3 LiFePO4"),
        ("(PEA)2PbI4, (CH3)2CO", "(CH3)2CO (PEA)2PbI4"),
        ("Lead halide Perovskites", "halide perovskites"),
        ("HSE06, B3LYP and PBE+U; Tc = 15 K in VASP, SCF", ""),
    ],
)
def test_words_that_look_like_formulas_or_names(text, found):
    assert sorted(candidates(text)) == found.split()


def test_pages(capfd):
    write(a=[METAL | {"step": "<b>"}], b=[OXIDE | {"step": "<b>"}])
    for words in ("summary a.jsonl", "compare a.jsonl b.jsonl"):
        screen = "".join("".join(shown(capfd, *words.split(), status="compare" in words)).split())
        for _ in range(2):  # a page may be written anew
            shown(capfd, *words.split(), "--html", "page.html", status="compare" in words)
        page = Path("page.html").read_text(encoding="utf-8")
        Path("-").touch()
        assert run([*words.split(), "--html", "-"]) == ("compare" in words)
        assert capfd.readouterr() == (page, "")
        assert not re.search(r"https?:|src=|<link|<script|<b>", page)
        text = re.sub("<[^>]*>", "", re.search("<pre.*</pre>", page, re.DOTALL)[0])
        text = text.replace("&gt;", ">").replace("&lt;", "<")
        assert "".join(text.split()) == screen
    limits = resource.getrlimit(resource.RLIMIT_FSIZE)
    resource.setrlimit(resource.RLIMIT_FSIZE, (100, limits[1]))
    assert run(["explain", "NiO", "--html", "big.html"]) == 2
    resource.setrlimit(resource.RLIMIT_FSIZE, limits)
    assert not [*Path().glob("big*")]
    assert run(["summary", "a.jsonl", "--html", "a.jsonl"]) == 2
    assert "expected a new file, or a page to write anew" in capfd.readouterr().err
