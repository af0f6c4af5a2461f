"""A request: a JSON object that holds the arguments of one call. It is checked before the call is
made, so that a wrong entry is reported by its path. A null means that the entry was left out.
"""

from collections.abc import Mapping
from difflib import get_close_matches
from functools import cache, lru_cache
from typing import Any, TypedDict, get_type_hints

import msgspec
from tavik_agent.characterization_types import (
    CharacterizationRecord,
    PlannerManifest,
    QueryIntent,
    StepParameters,
)

from tavik_agent.material_characterization import characterize_material

from .decoder import accepted, convert, wrong_entry
from .files import InputError, parse_json
from .nulls import without_nulls


class Request(TypedDict, total=False):
    """The arguments of one call, which characterizes the material of one planning step."""

    step: str
    step_params: StepParameters
    query_text: str
    findings: list[object]
    planner_manifest: PlannerManifest
    previous_steps_params: Mapping[str, StepParameters]
    base_characterization: CharacterizationRecord
    query_intent: QueryIntent


ARGUMENTS = get_type_hints(Request)
# Decoded whole, since an unknown key of the one may be a slip and those of the other are kept.
WHOLE = ("base_characterization", "query_intent")
WHOLE_TYPES = {name: accepted(ARGUMENTS[name]) for name in WHOLE}


@cache
def _decoder(kept: tuple[str, ...]) -> msgspec.json.Decoder[Any]:
    fields: list[tuple[str, Any, Any]] = [
        (name, dict[str, Any] | None if name in WHOLE else accepted(hint), None)
        for name, hint in ARGUMENTS.items()
    ]
    fields += [(name, msgspec.Raw, msgspec.Raw()) for name in kept if name not in ARGUMENTS]
    request = msgspec.defstruct("Request", fields, forbid_unknown_fields=True, gc=False)
    return msgspec.json.Decoder(request)


def decode_request(line: bytes, place: str, number: int | None = None) -> dict[str, Any]:
    """The checked arguments in a line of a file, or in a whole file; without nulls."""
    try:
        request = _decoder(()).decode(line)
    except msgspec.ValidationError as error:
        raise wrong_entry(error, _line(place, number)) from None
    except (msgspec.DecodeError, UnicodeDecodeError, RecursionError):
        # Python's own decoder takes lone surrogates, and says where the JSON is wrong.
        return check(parse_json(line, place, number or 1), _line(place, number))
    return _checked(request, _line(place, number))


def check(value: Any, place: str) -> dict[str, Any]:
    """The arguments in a value that was decoded before, checked and without nulls."""
    try:
        request = msgspec.convert(value, _decoder(()).type)
    except msgspec.ValidationError as error:
        raise wrong_entry(error, place) from None
    return _checked(request, place)


def _checked(request: Any, place: str) -> dict[str, Any]:
    given = {name: getattr(request, name) for name in ARGUMENTS}
    for name, hint in WHOLE_TYPES.items():
        if given[name]:
            convert(given[name], hint, place, f"$.{name}")
    arguments: dict[str, Any] = without_nulls(given)
    return arguments


def _line(place: str, number: int | None) -> str:
    return place if number is None else f"{place}:{number}"


def characterize(arguments: Mapping[str, Any], place: str) -> Mapping[str, Any]:
    """The record of checked arguments."""
    if "step" not in arguments:
        raise InputError(place, "$.step: is missing, the name of the planning step", kind="no step")
    try:
        record: Mapping[str, Any] = characterize_material(**arguments)
    except Exception as error:  # any error that a value raises while it is read
        kind = f"the values give {type(error).__name__}"
        raise InputError(place, f"{kind}: {error}", kind=kind) from error
    return record


def slips(arguments: Mapping[str, Any]) -> list[str]:
    """A warning for each key of the intent that is near a known one but not it."""
    found = ((key, _near(key)) for key in arguments.get("query_intent", ()))
    return [f"$.query_intent.{key}: is not read; {known} is" for key, known in found if known]


INTENT_KEYS = tuple(get_type_hints(QueryIntent))


@lru_cache(1000)
def _near(key: str) -> str | None:
    """The known key that was probably meant."""
    if key in INTENT_KEYS:
        return None
    return next(iter(get_close_matches(key.lower(), INTENT_KEYS, 1, 0.75)), None)
