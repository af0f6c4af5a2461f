"""The tables held to the collection of labelled requests in evaluation/."""

import json
import runpy
from pathlib import Path
from types import SimpleNamespace

import pytest

SCORE = Path(__file__).parents[1] / "evaluation" / "score.py"
scoring = SimpleNamespace(**runpy.run_path(str(SCORE)))


@pytest.fixture(autouse=True)
def _known_tables():
    """The module's own tables stay in place here."""


def test_collection_is_right(capsys):
    files = scoring.collections()
    result = scoring.score(request for file in files for request in scoring.read(file))
    with capsys.disabled():
        print("\n" + scoring.summary(result))
    assert result.requests > 400
    assert result.right >= 0.985
    assert result.with_false_species <= 1.5


def test_misses_and_false_species_are_counted(tmp_path):
    rows = [
        {"request": {"step": "scf", "query_text": "NiO and Si"}, "expect": {"species": ["Ni"]}},
        {"request": {"step": "scf"}, "expect": {"species": [], "formula_hint": "Fe"}},
    ]
    file = tmp_path / "rows.jsonl"
    file.write_text("\n".join(map(json.dumps, rows)), encoding="utf-8")
    result = scoring.score(scoring.read(file))
    misses = [(miss.field, miss.found) for miss in result.misses]
    assert misses == [("species", ["Ni", "O", "Si"]), ("formula_hint", "")]
    assert (result.right, result.with_false_species) == (pytest.approx(1 / 3), 50)
