"""The causes of one field: what decided is found, taken away, and what decides then is found, until
the label is another one.
"""

from collections.abc import Collection
from typing import Any, NamedTuple

from .document import Document, Piece
from .notes import Question
from .shrinking import deciding_pieces
from .trials import FAILED, Trials

UNLIMITED = 1000  # more rounds than any request has causes; a value that lies could go on for ever


class Found(NamedTuple):
    """The causes in the order in which they decide, and the label without them."""

    causes: list[Question | Piece]
    otherwise: Any


class _Rule(NamedTuple):
    """What is needed together for the label."""

    questions: list[Question]
    needs_text: bool


def find(trials: Trials, document: Document, label: Any) -> Found:
    causes: list[Question | Piece] = []
    denied: set[Question] = set()
    for _ in range(UNLIMITED):
        now = trials.label(document.whole(), denied=denied)
        if now != label:
            return Found(causes, now)
        rule = _deciding(trials, document, label, denied)
        pieces = _wording(trials, document, label, rule) if rule.needs_text else []
        new = [*_leaves(rule.questions), *pieces] or _whole_labels(trials, document, label, denied)
        if not new:
            break
        causes += new
        denied.update(rule.questions)
    return Found(causes, FAILED)


def _deciding(
    trials: Trials, document: Document, label: Any, denied: Collection[Question]
) -> _Rule:
    """The rule that decided now: the questions answered yes that it needs, and whether it needs the
    text. Where both would do alone, the last question tells which came first."""
    texts = document.whole()
    nothing = ["", ""]
    kept = trials.notes.yes()
    text_first = not trials.is_by_driver and not trials.notes.ended_with_yes()

    def holds(kept: list[Question], texts: list[str]) -> bool:
        return bool(trials.label(texts, kept, denied) == label)

    if not holds(kept, texts):
        return _Rule([], needs_text=False)
    if not text_first and holds(kept, nothing):
        texts = nothing
    if holds([], texts):
        kept = []
    for question in list(kept):
        without = [other for other in kept if other != question]
        if holds(without, texts):
            kept = without
    return _Rule(kept, texts is not nothing and not holds(kept, nothing))


def _wording(trials: Trials, document: Document, label: Any, rule: _Rule) -> list[Piece]:
    def is_decided(texts: list[str]) -> bool:
        return bool(trials.label(texts, rule.questions) == label)

    if not isinstance(label, list):
        return deciding_pieces(document, is_decided)
    return _mentions(trials, document, frozenset(label), rule)


def _mentions(
    trials: Trials, document: Document, members: frozenset[str], rule: _Rule
) -> list[Piece]:
    """The pieces that give any of the members, and for a member that none of them gives by itself
    the longer pieces that do."""

    def found_in(texts: list[str]) -> frozenset[str]:
        found = trials.label(texts, rule.questions)
        return members & frozenset(found if isinstance(found, list) else ())

    pieces = deciding_pieces(document, lambda texts: bool(found_in(texts)))
    alone = {tuple(document.given([piece])) for piece in pieces}
    for member in members.difference(*(found_in([*texts]) for texts in alone)):
        document.restore(pieces)

        def is_found(texts: list[str], member: str = member) -> bool:
            return member in found_in(texts)

        longer = deciding_pieces(document, is_found)
        pieces = sorted({*pieces, *longer})
        document.blank(pieces)
    return pieces


def _leaves(questions: list[Question]) -> list[Question]:
    """Without the mappings of the request of which an entry is named."""
    paths = [question[1] for question in questions if question[0] == "read"]
    return [
        question
        for question in questions
        if question[0] != "read"
        or not any(path[: len(question[1])] == question[1] != path for path in paths)
    ]


def _whole_labels(
    trials: Trials, document: Document, label: Any, denied: Collection[Question]
) -> list[Question]:
    """Earlier fields that decide by what they are and not by an answer to a question."""
    for field, value in trials.decided_before().items():
        before = trials.without
        trials.without = before | {field}
        if trials.label(document.whole(), denied=denied) != label:
            return [("label", field, value)]
        trials.without = before
    return []
