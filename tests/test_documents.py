"""What the types and the documents list, held against what the module gives. The examples of the
documents run by themselves."""

import ast
import html
import json
import re
import shlex
import subprocess
import sys
from pathlib import Path

import decisions
import pytest
from decisions import in_code
from reliability import properties
from reliability.generate import REQUESTS

from tavik_agent import material_characterization as mc

ROOT = Path(__file__).parents[1]
README = (ROOT / "README.md").read_text(encoding="utf-8")
LABELS = {key: {*labels} for key, labels in properties.LABELS.items()}
# For the labels that no request of the collection asks for.
FURTHER_REQUESTS = [
    {"step_params": {"atom": {"xyz": "NiO.xyz"}}},
    *({"query": text} for text in ("STM current over graphene", "Energies of CO in Hartree")),
]


@pytest.fixture(autouse=True)
def _known_tables():
    """The module's own tables stay in place here."""


def test_every_label_of_the_types_is_given_and_no_other():
    found = {key: set() for key in LABELS}
    for request in REQUESTS + FURTHER_REQUESTS:
        inputs = {key: value for key, value in request.items() if key not in ("expect", "query")}
        record = mc.characterize_material(step="", query_text=request.get("query", ""), **inputs)
        for key, labels in found.items():
            labels.add(record[key])
    assert found == LABELS


def test_decisions_name_every_keyword():
    source = (ROOT / "src/tavik_agent/text/keywords.hpp").read_text(encoding="utf-8")
    keywords = re.findall(r'\{Group::\w+, "(.+?)"', source)
    assert len(keywords) > 90
    assert {*keywords} <= {*in_code(decisions.TEXT)}


@pytest.mark.parametrize("field", [key for key, labels in LABELS.items() if "" not in labels])
def test_decisions_lead_to_every_label(field):
    numbers, _, labels = zip(*decisions.rows(field), strict=True)
    assert numbers == tuple(map(str, range(1, len(numbers) + 1)))
    assert {*labels} == LABELS[field]


def test_readme_shows_the_record_of_its_example():
    call, shown = re.findall(r"^```python\n(.*?)^```", README, re.MULTILINE | re.DOTALL)[:2]
    namespace = {}
    exec(call, namespace)
    assert [*ast.literal_eval(shown).items()] == [*namespace["record"].items()]
    example = subprocess.check_output([sys.executable, ROOT / "examples/characterize_request.py"])
    assert json.loads(example) == namespace["record"]
    command = re.search(r"^\$ (tavik-characterize) (.*)$", README, re.MULTILINE)
    typed = [sys.executable, "-m", "tavik_agent.characterize", "--json", *shlex.split(command[2])]
    assert json.loads(subprocess.check_output(typed)) == namespace["record"]
    picture = (ROOT / "docs" / "screen.svg").read_text(encoding="utf-8")
    picture = re.sub("<[^>]*>", " ", picture).replace("&#160;", " ")
    screen = subprocess.check_output([*typed[:3], *typed[4:]], text=True)
    words = {word for word in screen.split() if word.isascii()}  # the bar has two colours
    assert words <= {*html.unescape(picture).split()}


@pytest.mark.parametrize("document", ["README.md", "CONTRIBUTING.md", "docs/*.md"])
def test_files_that_documents_name_exist(document):
    tops = [top for top in ROOT.iterdir() if top.name not in (".git", ".venv", "build", "dist")]
    files = [str(path) for top in tops for path in (top, *top.rglob("*"))]
    like_a_file = re.compile(r"`([\w./-]+(?:\.(?:cpp|hpp|md|pyi?|sh|toml)|/))`")
    for path in ROOT.glob(document):
        for name in like_a_file.findall(path.read_text(encoding="utf-8")):
            place = "/" + re.sub("^mc/", "material_characterization/", name).rstrip("/")
            assert any(file.endswith(place) for file in files), f"{path.name}: {name}"
