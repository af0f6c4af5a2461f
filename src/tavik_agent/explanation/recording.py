"""One call of the rules with notes of what passed between them: what each classifier was given, and
of which texts of the request the joined text was made.
"""

from collections.abc import Callable, Mapping, Sequence
from contextlib import suppress
from typing import Any, NamedTuple

from .private_module import PrivateModule
from .wiring import READERS

QUERY_TEXT = "query_text"
DESCRIPTION = "structure_description"
# The parts that the driver joins, in its order.
PARTS = (QUERY_TEXT, "findings", "planner_manifest.purpose", "planner_manifest.notes")


class Recording(NamedTuple):
    arguments: Mapping[str, Any]
    record: Mapping[str, Any]
    given: dict[str, dict[str, Any]]
    """By function and parameter what it was given, of the last call of each."""
    found: dict[str, Any]
    """By function what it answered."""
    texts: list[tuple[str, str]]
    """The texts of the request by name: first the query, last the intent's description."""


class _AsText(dict[str, Any]):
    """A mapping of which only the text form counts; it was taken once and is not taken again."""

    def __init__(self, text: str) -> None:
        super().__init__()
        self._text = text

    def __str__(self) -> str:
        return self._text


def record(module: PrivateModule, arguments: Mapping[str, Any]) -> Recording:
    """Makes the call. What the values of the request raise reaches the caller unchanged."""
    given: dict[str, dict[str, Any]] = {}
    found: dict[str, Any] = {}
    texts: list[tuple[str, str]] = []

    def noting(name: str) -> Callable[..., Any]:
        def function(*values: Any, **named: Any) -> Any:
            given[name] = dict(zip(module.parameters[name], values, strict=False)) | named
            found[name] = module.function(name)(*values, **named)
            return found[name]

        return function

    def joined(*parts: Any) -> Any:
        join = module.function("_combined_text")
        return join(*_read_parts(parts, join, texts))

    classifiers = [n for n in module.parameters if n.startswith("_") and n not in READERS]
    functions = {name: noting(name) for name in (*classifiers, "_formula_hint")}
    with module.replaced({**functions, "_combined_text": joined}):
        made = module.characterize(arguments)
    query = arguments.get(QUERY_TEXT, "")
    texts[:0] = [(QUERY_TEXT, _text_form(query))]
    texts.append((f"query_intent.{DESCRIPTION}", _description(given)))
    return Recording(arguments, made, given, found, texts)


def _read_parts(
    parts: Sequence[Any], join: Callable[..., str], texts: list[tuple[str, str]]
) -> list[Any]:
    """The parts with each text form taken once; the texts but for the query are put down."""
    read: list[Any] = []
    for name, part in zip(PARTS, parts, strict=True):
        if name == QUERY_TEXT:
            read.append(part)
        elif isinstance(part, list):
            items = [str(item) for item in part]
            texts.extend((f"{name}[{n}]", text) for n, text in enumerate(items))
            read.append(items)
        elif isinstance(part, str) or not (text := join(part)):
            read.append(part)
            if isinstance(part, str):
                texts.append((name, str(part)))
        else:
            texts.append((name, text))
            read.append(_AsText(text))
    return read


def _text_form(value: Any) -> str:
    with suppress(Exception):
        return str(value) if value else ""
    return ""


def _description(given: Mapping[str, Mapping[str, Any]]) -> str:
    for values in given.values():
        with suppress(Exception):
            return _text_form(values["query_intent"].get(DESCRIPTION))
    return ""
