"""A request: a JSON object that holds the arguments of one call. It is checked before the call is
made, so that a wrong entry is reported by its name. What the module tolerates in deeper places
passes.
"""

from collections.abc import Callable, Mapping
from reprlib import repr as brief
from typing import Any, NamedTuple

from tavik_agent.material_characterization import characterize_material

from .files import InputError


class Shape(NamedTuple):
    words: str
    fits: Callable[[Any], bool]


STRING = Shape("a string", lambda value: isinstance(value, str))
LIST = Shape("a list", lambda value: isinstance(value, list))
OBJECT = Shape("an object", lambda value: isinstance(value, dict))
STRINGS = Shape(
    "a list of strings",
    lambda value: isinstance(value, list) and all(isinstance(item, str) for item in value),
)

ARGUMENTS = {
    "step": STRING,
    "step_params": OBJECT,
    "query_text": STRING,
    "findings": LIST,
    "planner_manifest": OBJECT,
    "previous_steps_params": OBJECT,
    "base_characterization": OBJECT,
    "query_intent": OBJECT,
}
# Entries in which a string in place of a list would be read letter by letter.
ENTRIES = {
    ("query_intent", "species"): STRINGS,
    ("base_characterization", "species"): LIST,
    ("base_characterization", "evidence"): STRINGS,
}


def check(request: Any, place: str) -> dict[str, Any]:
    """Returns the request when each entry has its shape; null stands for an entry left out."""
    expect(OBJECT, request, place)
    for name, value in request.items():
        if name not in ARGUMENTS:
            raise InputError(
                place, f"{brief(name)} is no argument; expected {', '.join(ARGUMENTS)}"
            )
        if value is not None:
            expect(ARGUMENTS[name], value, place, name)
    for (name, key), shape in ENTRIES.items():
        value = (request.get(name) or {}).get(key)
        if value is not None:
            expect(shape, value, place, f"{name}.{key}")
    checked: dict[str, Any] = request
    return checked


def characterize(request: Mapping[str, Any], place: str) -> Mapping[str, Any]:
    """The record of a checked request."""
    if "step" not in request:
        raise InputError(place, 'expected an entry "step", the name of the planning step')
    try:
        record: Mapping[str, Any] = characterize_material(**request)
    except Exception as error:  # any error that a value raises while it is read
        raise InputError(place, f"the values give {type(error).__name__}: {error}") from error
    return record


def expect(shape: Shape, value: Any, place: str, name: str = "") -> None:
    if not shape.fits(value):
        where = f"{name}: " if name else ""
        raise InputError(place, f"{where}expected {shape.words}, not {brief(value)}")
