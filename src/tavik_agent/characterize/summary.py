"""Sums up a run: how often each label of each field came, what stayed undecided, why lines failed,
and which words of requests without species the tables may lack.
"""

from collections import Counter
from collections.abc import Iterator
from dataclasses import dataclass, field
from itertools import zip_longest
from typing import Any, Literal, get_args, get_origin

from rich.console import RenderableType
from rich.text import Text

from .files import InputError, input_place
from .report import Bar, add_count, counts, most_common
from .runs import ACCOUNT, FIELDS, Answer, read_run, read_texts
from .unrecognised import Unrecognised

LABELS = {name: get_args(hint) for name, hint in FIELDS.items() if get_origin(hint) is Literal} | {
    "intent_driven": (True, False)
}
UNDECIDED = ("", "unknown", "other")
# An empty value of another field says that nothing was asked for.
DECIDED_FIELDS = [
    *(name for name, labels in LABELS.items() if {*labels} & {"unknown", "other"}),
    "species",
    "formula_hint",
]
ROWS = 10  # of a field whose values are no closed set
WORDS = 30
NO_TEXTS = (
    "The texts of the requests are not known, so words that the tables lack cannot be listed: "
    "give --requests IN.jsonl, or keep the texts with batch --keep query_text."
)


@dataclass
class Summary:
    records: int = 0
    confidence: float = 0
    texts: int = 0
    failures: Counter[str] = field(default_factory=Counter)
    fields: dict[str, Counter[Any]] = field(
        default_factory=lambda: {name: Counter() for name in FIELDS if name not in ACCOUNT}
    )
    unrecognised: Unrecognised = field(default_factory=Unrecognised)

    def add(self, answer: Answer, text: str) -> None:
        self.texts += bool(text)
        if answer.failure:
            self.failures[answer.kind] += 1
            return
        self.records += 1
        self.confidence += _number(answer.record["confidence"])
        for name, values in self.fields.items():
            value = answer.record.get(name, "")
            values.update(value or [""] if isinstance(value, list) else [value])
        if text:
            self.unrecognised.add(text, with_species=bool(answer.record.get("species")))


def _number(value: Any) -> float:
    return value if isinstance(value, int | float) else 0


def summarize(run: str, requests: str | None) -> Summary:
    summary = Summary()
    for answer, text in _with_texts(run, requests):
        summary.add(answer, text)
    return summary


def _with_texts(run: str, requests: str | None) -> Iterator[tuple[Answer, str]]:
    if requests is None:
        for answer in read_run(run):
            yield answer, answer.text
        return
    for pair in zip_longest(read_run(run), read_texts(requests)):
        answer, text = pair
        if answer is None or text is None:
            what = f"expected as many lines as in {input_place(requests)}"
            raise InputError(input_place(run), what)
        yield answer, text


def summary_parts(run: str, summary: Summary) -> Iterator[RenderableType]:
    failed = summary.failures.total()
    yield Text(f"{input_place(run)}: {summary.records + failed:,} lines", "bold")
    yield from ("", _overview(summary))
    if failed:
        yield from ("", most_common("errors by kind", summary.failures, failed, ROWS))
    for name, values in summary.fields.items():
        if name in LABELS:
            rows = sorted(
                ((label, values[label]) for label in LABELS[name]), key=lambda row: -row[1]
            )
            yield from ("", counts(name, rows, summary.records))
        else:
            yield from ("", most_common(name, values, summary.records, ROWS))
    yield ""
    if not summary.texts:
        yield Text(NO_TEXTS)
    elif words := summary.unrecognised.found():
        without = summary.fields["species"][""]
        heading = "not recognised, in requests without species"
        yield most_common(heading, words, without, WORDS)
    else:
        yield Text("No word of a request without species looks like a formula or a name.")


def _overview(summary: Summary) -> RenderableType:
    table = counts("undecided", (), 0)
    for name in DECIDED_FIELDS:
        times = sum(summary.fields[name][value] for value in UNDECIDED)
        add_count(table, name, times, summary.records)
    mean = summary.confidence / summary.records if summary.records else 0
    table.add_section()
    table.add_row("mean confidence", f"{mean:.2f}", "", Bar(mean))
    return table
