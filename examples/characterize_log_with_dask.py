"""Characterize a log of requests, one JSON object of arguments a line, with Dask.

Usage: characterize_log_with_dask.py LOG FOLDER [--scheduler ADDRESS | --workers N] [--block SIZE]

LOG may be a pattern and, like FOLDER, any place that fsspec knows. Every line of LOG gives one line
in the parts of FOLDER, in the same order: a record, or for a bad line an error object with the
message, the file and the text of the line. The exit status is 1 when there are bad lines.
"""

import argparse
import json
import sys
from collections.abc import Iterable

import dask.bag
import fsspec
from dask.base import compute
from dask.delayed import delayed
from dask.distributed import Client

from tavik_agent.material_characterization import characterize_material


def characterize_line(line: str) -> str:
    request = json.loads(line.encode())  # bytes that are not UTF-8 fail here
    return json.dumps(characterize_material(**request))


def characterize_part(lines: Iterable[tuple[str, str]], target: str) -> tuple[int, int]:
    """Write the results of some lines of a file; return how many there are, and how many errors."""
    results, errors = [], 0
    for line, file in lines:
        try:
            results.append(characterize_line(line))
        except Exception as error:
            report = {"message": f"{type(error).__name__}: {error}"}
            report |= {"file": file, "text": line.rstrip("\n")}
            results.append(json.dumps({"error": report}))
            errors += 1
    with fsspec.open(target, "w", encoding="utf-8") as out:
        out.writelines(f"{result}\n" for result in results)
    return len(results), errors


def characterize_log(log: str, folder: str, block: str) -> tuple[int, int]:
    """Run the job on the current cluster; each block of the log makes one part of the folder."""
    fsspec.open(f"{folder}/part").fs.makedirs(folder, exist_ok=True)
    lines = dask.bag.read_text(
        log, blocksize=block, encoding="utf-8", errors="surrogateescape", include_path=True
    )
    write = delayed(characterize_part)
    parts = enumerate(lines.to_delayed())
    counts = compute(*(write(part, f"{folder}/{number:06}.jsonl") for number, part in parts))
    return sum(lines for lines, _ in counts), sum(errors for _, errors in counts)


def main() -> int:
    parser = argparse.ArgumentParser(description="Characterize a log of requests with Dask.")
    parser.add_argument("log")
    parser.add_argument("folder")
    parser.add_argument("--scheduler", help="address of a running cluster")
    parser.add_argument("--workers", type=int, default=2, help="processes without a cluster")
    parser.add_argument("--block", default="64MiB", help="how much of the log one task takes")
    args = parser.parse_args()
    local = {"n_workers": args.workers, "threads_per_worker": 1, "dashboard_address": None}
    with Client(args.scheduler) if args.scheduler else Client(**local) as client:
        workers = len(client.scheduler_info()["workers"])
        lines, errors = characterize_log(args.log, args.folder, args.block)
    print(f"{lines} lines on {workers} workers, {errors} errors")
    return 1 if errors else 0


if __name__ == "__main__":
    sys.exit(main())
