"""What a call costs, as ratios to yardsticks taken beside it in the same run.

    python benchmarks/bench.py

Prints one row a case and exits with status 1 when a target is missed by more than a quarter.
"""

import statistics
import subprocess
import sys
import timeit
import tomllib
from collections.abc import Callable, Iterator, Mapping
from itertools import chain
from pathlib import Path
from typing import Any, NamedTuple

from log import TARGETS, costs

from tavik_agent.material_characterization import characterize_material

TOLERANCE = 1.25
ROUNDS = 200

Arguments = Mapping[str, Any]

TYPICAL: Arguments = {
    "step": "relax",
    "step_params": {"element": [{"species": "Fe"}, {"species": "O"}]},
    "query_text": "Relax antiferromagnetic Fe2O3 with DFT+U",
    "query_intent": {"correlation": "dft+u", "magnetism": "antiferromagnetic"},
}
PROSE: Arguments = {
    "step": "scf",
    "query_text": "I would like to relax the crystal structure of gallium arsenide and then "
    "compute its band structure with a dense mesh of points",
    "findings": ["lattice constant converged at 60 Ry", "forces below threshold"],
    "planner_manifest": {"purpose": "band structure", "notes": "semiconductor"},
}
STEP: Arguments = {"step": "relax"}
FINDINGS: Arguments = {
    "step": "relax",
    "findings": [
        f"The relaxed lattice constant of the phase converged at {i} with a dense mesh of points "
        "and Fe"
        for i in range(1000)
    ],
}

COLLECTION = Path(__file__).parents[1] / "evaluation"
COPY = '{**record, "species": [*record["species"]], "evidence": [*record["evidence"]]}'

# Each piece is repeated to the length wanted and put in brackets, since a text with blanks at its
# ends is searched twice, as it stands and without them.
KINDS_OF_TEXT = {
    "plain prose": "the quick relaxation of the cell may lead to another minimum ",
    "capital letters": "ABCDEFGHIJKLMNOPQRSTUVWXYZ",
    "element symbols": "FeNiOCuZnGaAs",
    "digits": "1234567890",
    "keyword beginnings": "scanning tunneling microscop boron nitrid hexagonal boro ",
    "blanks": " ",
}


class Measured(NamedTuple):
    """A figure by its best round and by the middle one, and what it should not exceed."""

    case: str
    minimum: float
    median: float
    target: float
    unit: str
    rate: float | None = None  # calls a second


def timed(statement: str, names: Mapping[str, object]) -> Callable[[], float]:
    """A function that takes the time of the statement, from as many runs as last 4 ms."""
    timer = timeit.Timer(statement, globals=dict(names))
    number = 1
    while (total := timer.timeit(number)) < 0.004:
        number = max(number * 2, int(number * 0.004 / max(total, 1e-9)))
    return lambda: timer.timeit(number) / number


def compare(
    case: str, statement: str, yardstick: str, names: Mapping[str, object], target: float, unit: str
) -> Measured:
    """The statement's time in units of the yardstick's, taken in turns."""
    ours, theirs = timed(statement, names), timed(yardstick, names)
    rounds = [(ours(), theirs()) for _ in range(ROUNDS)]
    times, units = zip(*rounds, strict=True)
    median = statistics.median(times) / statistics.median(units)
    return Measured(case, min(times) / min(units), median, target, unit, 1 / min(times))


def call_of(arguments: Arguments) -> tuple[str, dict[str, object]]:
    """A call with the arguments by keyword, and the names that it uses."""
    keywords = ", ".join(f"{name}={name}" for name in arguments)
    return f"characterize_material({keywords})", {
        "characterize_material": characterize_material,
        **arguments,
    }


def against_copy(case: str, arguments: Arguments, target: float) -> Measured:
    """In units of C, copying the finished record."""
    statement, names = call_of(arguments)
    record = characterize_material(**arguments)
    return compare(case, statement, COPY, {**names, "record": record}, target, "C")


def collection() -> Measured:
    """All labelled requests in turn: a planner's requests differ from call to call."""
    files = [tomllib.loads(file.read_text("utf-8")) for file in sorted(COLLECTION.glob("*.toml"))]
    written = [request for groups in files for rows in groups.values() for request in rows]
    requests = [
        {"step": "scf", "query_text": request.get("query", "")}
        | {key: value for key, value in request.items() if key not in ("expect", "query")}
        for request in written
    ]
    records = [characterize_material(**request) for request in requests]
    names = {"call": characterize_material, "requests": requests, "records": records}
    calls = "for request in requests: call(**request)"
    measured = compare(
        f"{len(requests)} requests in turn", calls, f"for record in records: {COPY}", names, 12, "C"
    )
    return measured._replace(rate=len(requests) * (measured.rate or 0))


def against_lowering() -> Measured:
    """In units of L, lowering the joined text."""
    statement, names = call_of(FINDINGS)
    text = " ".join(FINDINGS["findings"])
    case = f"{len(text) // 1000} kB of findings in {len(FINDINGS['findings']):,} items"
    return compare(case, statement, "text.lower()", {**names, "text": text}, 12, "L")


def ten_times(kind: str, piece: str) -> Measured:
    """A megabyte of text in units of 100 kB of it."""
    short, long = (f"({(piece * (size // len(piece) + 1))[:size]})" for size in (10**5, 10**6))
    names = {"characterize_material": characterize_material, "short": short, "long": long}
    call = "characterize_material(step='relax', query_text={})"
    measured = compare(kind, call.format("long"), call.format("short"), names, 11, "times")
    return measured._replace(case=f"ten times the text: {kind}")


def in_new_process(code: str) -> float:
    """The number that the code prints."""
    done = subprocess.run([sys.executable, "-c", code], capture_output=True, text=True, check=True)
    return float(done.stdout)


def repeated(case: str, code: str, rounds: int, target: float, unit: str) -> Measured:
    figures = [in_new_process(code) for _ in range(rounds)]
    return Measured(case, min(figures), statistics.median(figures), target, unit)


def memory() -> Measured:
    """What a call adds to the largest resident size, in copies of its 10 MB of text."""
    code = """
import resource
from tavik_agent.material_characterization import characterize_material as call
call(step="relax", query_text="warm up with iron oxide")
findings = ["The total energy of the relaxed cell converged; " + str(i) for i in range(200_000)]
before = resource.getrusage(resource.RUSAGE_SELF).ru_maxrss
call(step="relax", findings=findings)
after = resource.getrusage(resource.RUSAGE_SELF).ru_maxrss
unit = 1 if __import__("sys").platform == "darwin" else 1024
print((after - before) * unit / len(" ".join(findings)))
"""
    return repeated("10 MB of text: memory beyond the text", code, 3, 3, "copies")


def milliseconds(case: str, before: str, code: str, target: float) -> Measured:
    """What the code takes in a new process, after what comes before it."""
    lines = [
        f"import time; {before}",
        "start = time.perf_counter()",
        code,
        "print(1000 * (time.perf_counter() - start))",
    ]
    return repeated(case, "\n".join(lines), 15, target, "ms")


TABLES = "import tavik_agent.material_reference_data, tavik_agent.method_acronyms"
MODULE = "from tavik_agent.material_characterization import characterize_material"


def show(measured: Measured) -> None:
    verdict = "met" if measured.minimum <= measured.target else "missed"
    rate = f"{measured.rate:>12,.0f}" if measured.rate else ""
    figures = f"{measured.minimum:>8.2f} {measured.median:>8.2f} {measured.target:>7g}"
    print(f"{measured.case:<40} {figures} {measured.unit:<6} {verdict:<6} {rate}", flush=True)


def log() -> Iterator[Measured]:
    for (jobs, target), cost in zip(TARGETS.items(), costs(TARGETS), strict=True):
        case = f"100,000 lines, {jobs} job{'s'[: jobs - 1]}"
        yield Measured(case, cost.minimum, cost.median, target, "J")


def main() -> int:
    print(
        f"{'case':<40} {'minimum':>8} {'median':>8} {'at most':>7} {'':<6} {'':<6} {'calls/s':>12}"
    )
    measures: list[Callable[[], Measured]] = [
        lambda: against_copy("typical call", TYPICAL, 5.5),
        lambda: against_copy("prose only", PROSE, 10),
        lambda: against_copy("step alone", STEP, 4),
        collection,
        against_lowering,
        *(lambda kind=kind: ten_times(*kind) for kind in KINDS_OF_TEXT.items()),
        memory,
        lambda: milliseconds("importing the tables", "import re", TABLES, 60),
        lambda: milliseconds("importing the module", f"import re; {TABLES}", MODULE, 2),
        lambda: milliseconds(
            "first search", MODULE, "characterize_material(step='', query_text='iron')", 15
        ),
    ]
    missed = False
    for measured in chain((measure() for measure in measures), log()):
        show(measured)
        missed |= measured.minimum > measured.target * TOLERANCE
    return int(missed)


if __name__ == "__main__":
    sys.exit(main())
