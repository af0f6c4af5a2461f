"""What each classifier is given, learnt once from the module itself: a call in which every value is
a marker shows which parameter of which classifier carries what.
"""

from collections.abc import Callable
from typing import Any, NamedTuple

from .private_module import PrivateModule

# What the driver calls for other things than a label.
READERS = (
    "_combined_text",
    "_species_from_element_block",
    "_species_from_text",
    "_formula_parts",
    "_formula_hint",
)
QUERY, COMBINED = "query_text", "combined text"


class Wiring(NamedTuple):
    """Where the values of a call come from."""

    classifiers: dict[str, str]
    """By field of the record the function that decides it."""
    texts: dict[str, dict[str, str]]
    """By function and parameter: QUERY or COMBINED."""
    intent: dict[str, str]
    """By parameter the key of the intent that it carries."""
    undecided: dict[str, Any]
    """The record of a request that says nothing."""

    def no_labels(self) -> dict[str, Any]:
        """What each classifier answers when it decides nothing."""
        return {name: self.undecided[field] for field, name in self.classifiers.items()}


class _Marked(dict[str, str]):
    """An intent in which every key that is asked for holds a marker of its own."""

    def __bool__(self) -> bool:
        return True

    def get(self, key: str, default: Any = None) -> Any:
        return f"intent {key}"


def learn(module: PrivateModule, *, with_query: bool) -> Wiring:
    """The wiring of requests with a query, or without one."""
    given: dict[str, dict[str, Any]] = {}

    def marking(name: str) -> Callable[..., Any]:
        def function(*values: Any, **named: Any) -> str:
            parameters = module.parameters[name]
            given[name] = dict(zip(parameters, values, strict=False)) | named
            return f"label {name}"

        return function

    classifiers = [n for n in module.parameters if n.startswith("_") and n not in READERS]
    functions: dict[str, Callable[..., Any]] = {name: marking(name) for name in classifiers}
    functions["_combined_text"] = lambda *parts: COMBINED
    functions["_species_from_text"] = lambda text: []
    functions["_formula_hint"] = lambda text, species: ""
    query = QUERY if with_query else ""
    with module.replaced(functions):
        marked = module.characterize({"step": "", "query_text": query, "query_intent": _Marked()})
    return Wiring(
        classifiers={
            field: value.removeprefix("label ")
            for field, value in marked.items()
            if isinstance(value, str) and value.startswith("label ")
        },
        texts={
            name: {p: value for p, value in values.items() if value in (QUERY, COMBINED)}
            for name, values in given.items()
        },
        intent={
            parameter: value.removeprefix("intent ")
            for values in given.values()
            for parameter, value in values.items()
            if isinstance(value, str) and value.startswith("intent ")
        },
        undecided=module.characterize({"step": ""}),
    )
