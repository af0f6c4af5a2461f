"""What a log of requests costs on the command line, in units of J.

    python benchmarks/log.py [HUNDREDS_OF_THOUSANDS_OF_LINES]

J is the time in which msgspec alone decodes the requests and encodes their records, in one process,
taken in turns with the command. The log has 100,000 requests as a planner makes them, with the
texts of the labelled requests, or these so many times.
"""

import json
import os
import statistics
import subprocess
import sys
import tempfile
import time
import tomllib
from collections.abc import Iterable
from pathlib import Path
from typing import Any, NamedTuple

import msgspec

from tavik_agent.material_characterization import characterize_material

LINES = 100_000
ROUNDS = 5
TARGETS = {1: 3, 2: 2}  # J, by the number of processes
COLLECTION = Path(__file__).parents[1] / "evaluation"
COMMAND = [sys.executable, "-m", "tavik_agent.characterize", "batch"]
ROW = [0.145, 0.355, 0.25]
PLANNED: dict[str, Any] = {
    "step": "relax",
    "step_params": {
        "element": [
            {"species": "Fe", "pseudopotential": "Fe.upf", "mass": 55.845},
            {"species": "O", "pseudopotential": "O.upf", "mass": 15.999},
        ],
        "atom": {"fracxyz": [*([["Fe", *ROW]] * 4), *([["O", *ROW]] * 6)]},
        "domain": {"latvec": [[2.519, 1.454, 4.582], [-2.519, 1.454, 4.582], [0.0, -2.909, 4.582]]},
        "kpoints": [6, 6, 6],
    },
    "findings": ["converged in 14 iterations", "forces below 0.01 eV/A"],
    "planner_manifest": {"purpose": "band structure", "notes": ["check the gap"]},
    "query_intent": {
        "species": ["Fe", "O"],
        "formula": "Fe2O3",
        "correlation": "dft+u",
        "magnetism": "antiferromagnetic",
        "units": {"energy": "eV"},
    },
}


class Cost(NamedTuple):
    """In J by the best rounds, and by the middle ones; and the seconds of the best."""

    minimum: float
    median: float
    seconds: float


def log_lines() -> list[bytes]:
    files = [tomllib.loads(file.read_text("utf-8")) for file in sorted(COLLECTION.glob("*.toml"))]
    rows = [request for groups in files for rows in groups.values() for request in rows]
    texts = [row.get("query", "") for row in rows]
    return [
        json.dumps(PLANNED | {"query_text": texts[n % len(texts)]}).encode() for n in range(LINES)
    ]


def costs(jobs: Iterable[int], times: int = 1, rounds: int = ROUNDS) -> list[Cost]:
    """Of the command with each number of processes, over the log so many times."""
    lines = log_lines()
    decode, encode = msgspec.json.Decoder().decode, msgspec.json.Encoder().encode
    records = [characterize_material(**decode(line)) for line in lines]

    def alone() -> float:
        start = time.perf_counter()
        for _ in range(times):
            for line in lines:
                decode(line)
            for record in records:
                encode(record)
        return time.perf_counter() - start

    with tempfile.TemporaryDirectory() as folder:
        log, output = Path(folder, "log.jsonl"), Path(folder, "records.jsonl")
        with log.open("wb") as file:
            for _ in range(times):
                file.writelines(line + b"\n" for line in lines)

        def command(count: int) -> float:
            start = time.perf_counter()
            words = [*COMMAND, str(log), "-o", str(output), "--jobs", str(count)]
            subprocess.run(words, check=True)
            took = time.perf_counter() - start
            os.unlink(output)
            return took

        taken = [(alone(), *map(command, jobs)) for _ in range(rounds)]
    units, *ours = zip(*taken, strict=True)
    best, middle = min(units), statistics.median(units)
    return [Cost(min(took) / best, statistics.median(took) / middle, min(took)) for took in ours]


def main() -> None:
    times = int(sys.argv[1]) if len(sys.argv) > 1 else 1
    for jobs, cost in zip(TARGETS, costs(TARGETS, times, max(1, ROUNDS // times)), strict=True):
        figures = f"{cost.minimum:.2f} J, median {cost.median:.2f} J, {cost.seconds:.2f} s"
        print(f"{times * LINES:,} lines, --jobs {jobs}: {figures}")


if __name__ == "__main__":
    main()
