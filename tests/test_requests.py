"""The tables held to the collection of requests in tests/requests, labelled by practitioners."""

import tomllib
from collections import Counter
from pathlib import Path

import pytest

from tavik_agent import material_characterization as mc

FILES = sorted((Path(__file__).parent / "requests").glob("*.toml"))
REQUIRED = 0.99


@pytest.fixture(autouse=True)
def _known_tables():
    """The module's own tables stay in place here."""


def is_right(field, found, expected):
    return set(found) == set(expected) if field == "species" else found == expected


def missed_fields(request):
    inputs = {key: value for key, value in request.items() if key not in ("expect", "query")}
    record = mc.characterize_material(step="scf", query_text=request.get("query", ""), **inputs)
    return {
        field: f"{record[field]!r}, not {expected!r}"
        for field, expected in request["expect"].items()
        if not is_right(field, record[field], expected)
    }


def test_score(capsys):
    groups = [
        item for file in FILES for item in tomllib.loads(file.read_text(encoding="utf-8")).items()
    ]
    requests = [(group, request) for group, rows in groups for request in rows]
    labelled = Counter(group for group, request in requests for _ in request["expect"])
    missed = [(group, request, missed_fields(request)) for group, request in requests]
    wrong = Counter(group for group, _, fields in missed for _ in fields)
    score = 1 - wrong.total() / labelled.total()
    with capsys.disabled():
        print(f"\n{len(requests)} requests, {labelled.total()} labelled fields: {score:.2%} right")
        for group, request, fields in missed:
            for field, difference in fields.items():
                print(f"  {group}: {request.get('query', request)!r}: {field} {difference}")
    assert score >= REQUIRED
