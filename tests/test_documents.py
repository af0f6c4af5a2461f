"""What the documents list, held against the source. Their examples run by themselves."""

import json
import re
from pathlib import Path
from typing import get_args

import pytest

from tavik_agent import characterization_types

ROOT = Path(__file__).parents[1]
DECISIONS = (ROOT / "docs" / "decisions.md").read_text(encoding="utf-8")
README = (ROOT / "README.md").read_text(encoding="utf-8")


@pytest.fixture(autouse=True)
def _known_tables():
    """The module's own tables stay in place here."""


def in_code(text):
    return re.findall(r"`(.+?)`", text)


def test_decisions_name_every_keyword():
    source = (ROOT / "src/tavik_agent/text/keywords.hpp").read_text(encoding="utf-8")
    keywords = re.findall(r'\{Group::\w+, "(.+?)"', source)
    assert len(keywords) > 90
    assert set(keywords) <= set(in_code(DECISIONS))


@pytest.mark.parametrize(
    ("field", "labels"),
    [
        ("structure_mode", characterization_types.StructureMode),
        ("structure_archetype", characterization_types.StructureArchetype),
        ("electronic_class", characterization_types.ElectronicClass),
        ("correlation_class", characterization_types.CorrelationClass),
        ("magnetic_class", characterization_types.MagneticClass),
        ("material_family", characterization_types.MaterialFamily),
    ],
)
def test_decisions_lead_to_every_label(field, labels):
    section = re.search(rf"^## {field}$(.*?)^## ", DECISIONS, re.MULTILINE | re.DOTALL)[1]
    decided = re.findall(r"^\| \d+ \| .* \| `(\w+)` \|(?: [^`|]* \|)?$", section, re.MULTILINE)
    assert len(decided) == len(re.findall(r"^\| \d+ ", section, re.MULTILINE))
    assert set(decided) == set(get_args(labels))


def test_readme_shows_the_record_of_its_example():
    namespace = {}
    exec(re.search(r"^```python\n(.*?)^```", README, re.MULTILINE | re.DOTALL)[1], namespace)
    record = {key: json.dumps(value) for key, value in namespace["record"].items()}
    shown = {}
    for keys, values in re.findall(r"^\| (`[^|]*) \| (`[^|]*) \|", README, re.MULTILINE):
        shown |= zip(in_code(keys), in_code(values), strict=True)
    shortened = shown["evidence"].removesuffix(", ...]")
    assert record["evidence"].startswith(shortened)
    assert shown == record | {"evidence": shown["evidence"]}
    assert list(shown) == list(record)
