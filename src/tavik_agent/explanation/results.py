"""The types of what explain returns. All of it is valid JSON when the record is."""

from collections.abc import Mapping
from typing import Any, Literal, Required, TypedDict

type Kind = Literal[
    "argument", "intent", "wording", "table", "function", "label", "species", "earlier record"
]


class Cause(TypedDict, total=False):
    """One cause; its kind says which entries it has."""

    kind: Required[Kind]
    where: str
    """The argument, or the text: "query_text", "findings[2]", "query_intent.magnetism"."""
    start: int
    end: int
    """Characters in that text, as the caller gave it."""
    text: str
    within: str
    """The whole word, when the text is only a piece of one."""
    symbols: list[str]
    formula: str
    """What a name or a formula stands for."""
    table: str
    entry: str
    file: str
    line: int
    note: str
    """The comment of the entry's group."""
    rule: str
    """What makes the row, when it stands in no line by itself; the line is that of the rule."""
    function: str
    arguments: list[Any]
    field: str
    label: Any


class FieldExplanation(TypedDict):
    label: Any
    causes: list[Cause]
    """In the order in which they decide; empty when nothing was decided."""
    otherwise: Any
    """The label without all of the causes; None when nothing was decided."""


class Explanation(TypedDict):
    record: Mapping[str, Any]
    fields: dict[str, FieldExplanation]
