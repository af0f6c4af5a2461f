"""Scores the tables on labelled requests: by field, by group, and each field that is not right.

    python evaluation/score.py [NAME or FILE ...]

Without arguments all collections beside this file are scored; a name stands for one of them
("oxides"). A FILE is a collection of the same form (.toml), or has one JSON object a line with
"request" (the arguments of the call), "expect" and "group" (.jsonl).
"""

import json
import sys
import tomllib
from collections import Counter
from collections.abc import Iterable, Iterator
from pathlib import Path
from typing import Any, NamedTuple

from tavik_agent.material_characterization import characterize_material

HERE = Path(__file__).parent


class Request(NamedTuple):
    """The arguments of one call, and the fields that are expected of its record."""

    group: str
    arguments: dict[str, Any]
    expect: dict[str, Any]


class Miss(NamedTuple):
    """A field that is not as expected."""

    request: Request
    field: str
    found: object


class Score(NamedTuple):
    """What came out for a list of requests."""

    requests: int
    labelled: Counter[tuple[str, str]]
    """Labelled fields by group and field."""
    misses: list[Miss]
    with_false_species: float
    """Requests with a species that the label does not have, in a hundred labelled ones."""

    @property
    def right(self) -> float:
        return 1 - len(self.misses) / max(1, self.labelled.total())


def collections() -> list[Path]:
    return sorted(HERE.glob("*.toml"))


def read(file: Path) -> Iterator[Request]:
    text = file.read_text(encoding="utf-8")
    if file.suffix == ".jsonl":
        for row in map(json.loads, filter(str.strip, text.splitlines())):
            yield Request(row.get("group", file.stem), row["request"], row["expect"])
        return
    for group, rows in tomllib.loads(text).items():
        for row in rows:
            arguments = {"step": "scf", "query_text": row.pop("query", "")}
            expect = row.pop("expect")
            yield Request(group, arguments | row, expect)


def is_right(field: str, found: Any, expected: Any) -> bool:
    return bool(set(found) == set(expected) if field == "species" else found == expected)


def score(requests: Iterable[Request]) -> Score:
    requests = list(requests)
    labelled = Counter((r.group, field) for r in requests for field in r.expect)
    misses, with_species, false = [], 0, 0
    for request in requests:
        record: Any = characterize_material(**request.arguments)
        expect = request.expect
        misses += [
            Miss(request, field, record[field])
            for field, expected in expect.items()
            if not is_right(field, record[field], expected)
        ]
        if "species" in expect:
            with_species += 1
            false += not set(record["species"]) <= set(expect["species"])
    return Score(len(requests), labelled, misses, 100 * false / max(1, with_species))


def table(result: Score, column: int) -> Iterator[str]:
    """The share that is right, by group (column 0) or by field (column 1)."""
    labelled: Counter[str] = Counter()
    for key, count in result.labelled.items():
        labelled[key[column]] += count
    wrong = Counter((m.request.group, m.field)[column] for m in result.misses)
    for name, count in labelled.items():
        good = count - wrong[name]
        yield f"  {name:24} {good:5} of {count:<5} {100 * good / count:6.2f} %"


def summary(result: Score) -> str:
    """Each field that is not as expected, and the totals."""
    misses = [
        f"  {m.request.group}: {m.request.arguments.get('query_text')!r}: "
        f"{m.field} {m.found!r}, not {m.request.expect[m.field]!r}"
        for m in result.misses
    ]
    total = result.labelled.total()
    totals = (
        f"{result.requests} requests, {total} labelled fields: {result.right:.2%} right, "
        f"{result.with_false_species:.1f} in 100 with a false species"
    )
    return "\n".join([*(["not as expected", *misses] if misses else []), totals])


def report(result: Score) -> str:
    tables = ["by group", *table(result, 0), "by field", *table(result, 1)]
    return "\n".join([*tables, summary(result)])


def named(argument: str) -> Path:
    beside = HERE / f"{argument}.toml"
    return beside if beside.exists() else Path(argument)


if __name__ == "__main__":
    files = [named(argument) for argument in sys.argv[1:]] or collections()
    print(report(score(request for file in files for request in read(file))))
