"""Compares two runs over the same requests: how often each field went from one label to another,
with examples. Evidence and confidence follow from the labels and are not compared.
"""

from collections import Counter, defaultdict, deque
from collections.abc import Iterator
from dataclasses import dataclass, field
from itertools import chain, islice, zip_longest
from typing import Any, NamedTuple

from rich.console import RenderableType
from rich.padding import Padding
from rich.text import Text

from .files import input_place
from .runs import ACCOUNT, Answer, read_run, read_texts, shortened
from .terminal import grid, written

EXAMPLES = 20
TRANSITIONS = 10  # shown of a field
LOOKED_AT = 1000  # lines, for an entry that names the request


class Change(NamedTuple):
    name: str
    before: str
    after: str


class Example(NamedTuple):
    before: Answer
    after: Answer
    changes: list[Change]


@dataclass
class Comparison:
    compared: int = 0
    changed: int = 0
    transitions: defaultdict[str, Counter[Change]] = field(
        default_factory=lambda: defaultdict(Counter)
    )
    first_of_kind: list[Example] = field(default_factory=list)
    further: list[Example] = field(default_factory=list)
    alone: Counter[str] = field(default_factory=Counter)  # lines that the other run lacks, by file

    @property
    def same(self) -> bool:
        return not self.changed and not self.alone

    def examples(self, limit: int | None) -> list[Example]:
        """In their order. Those that show a change for the first time are left out last."""
        chosen = (self.first_of_kind + self.further)[:limit]
        return sorted(chosen, key=lambda example: example.before.number)

    def add(self, before: Answer, after: Answer, limit: int | None) -> None:
        changes = [*_changes(before, after)]
        self.compared += 1
        if not changes:
            return
        self.changed += 1
        is_new = any(change not in self.transitions[change.name] for change in changes)
        examples = self.first_of_kind if is_new else self.further
        if limit is None or len(examples) < limit:
            examples.append(Example(before, after, changes))
        for change in changes:
            self.transitions[change.name][change] += 1


def compare(path: str, other: str, *, all_examples: bool) -> Comparison:
    comparison = Comparison()
    limit = None if all_examples else EXAMPLES
    for before, after in _pairs(path, other):
        if before and after:
            comparison.add(before, after, limit)
        else:
            comparison.alone[input_place(path if before else other)] += 1
    return comparison


def _pairs(path: str, other: str) -> Iterator[tuple[Answer | None, Answer | None]]:
    """Answers to the same request: with the same kept identity when both runs have one, else on
    the same line. Answers wait for their partner, so runs in about the same order need no memory.
    """
    sides = [_with_identity(read_run(path)), _with_identity(read_run(other))]
    identities = {identity for identity, _ in sides}
    identity = identities.pop() if len(identities) == 1 else None
    waiting: list[dict[Any, deque[Answer]]] = [{}, {}]
    for both in zip_longest(*(answers for _, answers in sides)):
        for side, answer in enumerate(both):
            if answer is None:
                continue
            key = _key(answer, identity)
            if partners := waiting[1 - side].get(key):
                partner = partners.popleft()
                if not partners:
                    del waiting[1 - side][key]
                yield (answer, partner) if side == 0 else (partner, answer)
            else:
                waiting[side].setdefault(key, deque()).append(answer)
    for answer in chain.from_iterable(waiting[0].values()):
        yield answer, None
    for answer in chain.from_iterable(waiting[1].values()):
        yield None, answer


def _with_identity(answers: Iterator[Answer]) -> tuple[str | None, Iterator[Answer]]:
    """What names the requests of a run, by the first of its lines that tells; and the answers."""
    begin: list[Answer] = []
    for answer in islice(answers, LOOKED_AT):
        begin.append(answer)
        if answer.identity:
            return answer.identity, chain(begin, answers)
    return None, chain(begin, answers)


def _key(answer: Answer, identity: str | None) -> str | int:
    """Text for an identity of any kind, so that it differs from every number of a line."""
    return repr(answer.kept[identity]) if identity in answer.kept else answer.number


def _changes(before: Answer, after: Answer) -> Iterator[Change]:
    if before.failure or after.failure:
        if before.failure != after.failure:
            was, is_now = (written(side.failure or "answered") for side in (before, after))
            yield Change("error", was, is_now)
        return
    if before.record == after.record:
        return
    for name in before.record | after.record:
        old, new = before.record.get(name, ""), after.record.get(name, "")
        if name not in ACCOUNT and old != new:
            yield Change(name, written(old), written(new))


def comparison_parts(
    comparison: Comparison, *, requests: str | None, all_examples: bool
) -> Iterator[RenderableType]:
    yield Text(f"{comparison.changed:,} of {comparison.compared:,} requests changed", "bold")
    for place, lines in comparison.alone.items():
        yield Text(f"{lines:,} only in {written(place)}")
    limit = None if all_examples else TRANSITIONS
    for name, transitions in comparison.transitions.items():
        yield from ("", _transitions(name, transitions, limit))
    examples = comparison.examples(None if all_examples else EXAMPLES)
    if not examples:
        return
    texts = _texts(requests, {example.before.number for example in examples})
    left_out = f" of {comparison.changed:,}; --all shows all" * (len(examples) < comparison.changed)
    yield from ("", Text(f"{len(examples):,} examples{left_out}", "bold"))
    for example in examples:
        yield from _example(example, texts.get(example.before.number, ""))


def _transitions(name: str, transitions: Counter[Change], limit: int | None) -> RenderableType:
    table = grid()
    table.add_column(f"{written(name)}, from", overflow="fold", min_width=20)
    table.add_column("to", overflow="fold", min_width=20)
    table.add_column(f"{transitions.total():,}", justify="right", no_wrap=True)
    for change, times in transitions.most_common(limit):
        table.add_row(Text(change.before, "red"), Text(change.after, "green"), f"{times:,}")
    if limit and len(transitions) > limit:
        table.add_row(Text(f"and {len(transitions) - limit:,} more", "dim"))
    return table


def _example(example: Example, text: str) -> Iterator[RenderableType]:
    before, after, changes = example
    step = before.record.get("step") or after.record.get("step") or ""
    name = before.identity
    kept = f"{written(name)} {written(before.kept[name])}, " if name else ""
    text = text or before.text or after.text
    where = Text.assemble((f"{kept}line {before.number}", "bold"), f"  {written(step)}")
    yield where + Text(f"  {written(shortened(text))}" if text else "")
    for change in changes:
        line = Text.assemble(f"{written(change.name):<22}", (change.before, "red"), " -> ")
        yield Padding.indent(line + Text(change.after, "green"), 4)


def _texts(requests: str | None, numbers: set[int]) -> dict[int, str]:
    if requests is None:
        return {}
    numbered = enumerate(read_texts(requests), 1)
    return {number: text for number, text in numbered if number in numbers}
