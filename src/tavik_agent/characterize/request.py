"""A request: a JSON object that holds the arguments of one call. It is checked before the call is
made, so that a wrong entry is reported by its path. A null means that the entry was left out.
"""

import json
from collections.abc import Iterable, Mapping
from contextlib import suppress
from functools import lru_cache
from typing import Any, NamedTuple, Required, TypedDict, get_type_hints

import msgspec
from tavik_agent.characterization_types import (
    CharacterizationRecord,
    KnownStepParameters,
    PlannerManifest,
    QueryIntent,
)

from tavik_agent.material_characterization import characterize_material

from .decoder import accepted_fields, attribute, struct, wrong_entry
from .files import InputError, parse_json
from .nulls import without_nulls


class Request(TypedDict, total=False):
    """The arguments of one call, which characterizes the material of one planning step."""

    step: Required[str]
    """The name of the planning step, for example relax."""
    step_params: KnownStepParameters
    """The parameters of the step."""
    query_text: str
    """The user's request, unabridged."""
    findings: list[object]
    """What was found so far, as texts."""
    planner_manifest: PlannerManifest
    """The texts of the plan."""
    previous_steps_params: Mapping[str, KnownStepParameters]
    """The parameters of earlier steps by their names, in the order of the plan."""
    base_characterization: CharacterizationRecord
    """The record of an earlier step, to merge the new one into."""
    query_intent: QueryIntent
    """What a language model extracted from the query."""


ARGUMENTS = get_type_hints(Request)
# Decoded whole: an unknown key of the intent may be a slip, one of an earlier record is kept.
WHOLE = dict.fromkeys(("base_characterization", "query_intent"), dict[str, Any] | None)
INTENT = accepted_fields(QueryIntent)
KNOWN_INTENT = struct("query_intent", INTENT, closed=True)
ANY_INTENT = struct("query_intent", INTENT, closed=False)
EARLIER_RECORD = struct("record", accepted_fields(CharacterizationRecord), closed=False)
STEP = struct("step", accepted_fields(KnownStepParameters), closed=False)
NEAR = 0.75  # how alike two keys are when one is taken for a slip of the other


class Decoded(NamedTuple):
    arguments: dict[str, Any]  # an entry that was left out is None
    kept: dict[str, Any]  # what was asked to be kept of the request
    slips: list[str]  # what to warn of: keys near a known one


class RequestDecoder:
    """Decodes and checks requests, which may have entries to be kept beside the arguments."""

    def __init__(self, keep: Iterable[str] = ()) -> None:
        self.keep = tuple(keep)
        self._beside = [name for name in self.keep if name not in ARGUMENTS]
        fields = accepted_fields(Request) | WHOLE | dict.fromkeys(self._beside, Any)
        self._request = struct("Request", fields, closed=True)
        self._decode = msgspec.json.Decoder(self._request).decode

    def decode(self, line: bytes, place: str, number: int | None = None) -> Decoded:
        try:
            line.decode()  # msgspec passes over text that nobody asked for
            request = self._decode(line)
        except (msgspec.DecodeError, UnicodeDecodeError, RecursionError):
            # Python's own decoder takes lone surrogates, and the whole value shows what is wrong.
            value = parse_json(line.rstrip(b"\r\n"), place, number or 1)
            return self.check(value, place, number)
        given = msgspec.structs.asdict(request)
        values = {name: given[attribute(name)] for name in self.keep}
        kept = {name: value for name, value in values.items() if value is not None}
        for name in self._beside:
            del given[attribute(name)]
        slips = _check_whole(given, place, number)
        return Decoded(without_nulls(given) if b"null" in line else given, kept, slips)

    def record_of_plain(self, line: bytes) -> Mapping[str, Any]:
        """The record of a request in UTF-8, without nulls, and with nothing else that needs care;
        for any other an error of some kind.
        """
        request: Any = self._decode(line)
        if request.step is None:
            raise KeyError("step")
        if request.query_intent:
            msgspec.convert(request.query_intent, KNOWN_INTENT)
        if request.base_characterization:
            msgspec.convert(request.base_characterization, EARLIER_RECORD)
        record: Mapping[str, Any] = characterize_material(
            step=request.step,
            step_params=request.step_params,
            query_text=request.query_text,
            findings=request.findings,
            planner_manifest=request.planner_manifest,
            previous_steps_params=request.previous_steps_params,
            base_characterization=request.base_characterization,
            query_intent=request.query_intent,
        )
        if self.keep:
            values = {name: getattr(request, attribute(name)) for name in self.keep}
            kept = {name: value for name, value in values.items() if value is not None}
            return {**kept, **record, **kept}
        return record

    def check(self, value: Any, place: str, number: int | None = None) -> Decoded:
        """The same of a value that was decoded before."""
        kept = self._kept(value)
        if isinstance(value, dict):
            value = {name: value[name] for name in value if name not in self._beside}
        try:
            request = msgspec.convert(value, self._request)
        except msgspec.ValidationError as error:
            raise _wrong_request(error, value, self._request, line_of(place, number)) from None
        given = msgspec.structs.asdict(request)
        slips = _check_whole(given, place, number)
        return Decoded(without_nulls(given), kept, slips)

    def kept_of_bad(self, line: bytes) -> dict[str, Any]:
        """What is to be kept of a line that is no good request, as far as it is JSON."""
        with suppress(InputError):
            return self._kept(parse_json(line, "")) if self.keep else {}
        return {}

    def _kept(self, value: Any) -> dict[str, Any]:
        if not isinstance(value, dict):
            return {}
        return {name: value[name] for name in self.keep if value.get(name) is not None}


def _wrong_request(
    error: msgspec.ValidationError, value: Any, hint: type[msgspec.Struct], place: str
) -> InputError:
    """The error of an earlier step by the step's name, which msgspec does not know."""
    if "previous_steps_params[...]" in str(error):
        for name, parameters in value["previous_steps_params"].items():
            try:
                msgspec.convert(parameters or {}, STEP)
            except msgspec.ValidationError as wrong:
                path = f"$.previous_steps_params[{json.dumps(name)}]"
                return wrong_entry(wrong, place, STEP, path, kind="$.previous_steps_params[]")
    return wrong_entry(error, place, hint)


def _check_whole(given: dict[str, Any], place: str, number: int | None) -> list[str]:
    name = "query_intent"
    found = []
    try:
        if given[name]:
            try:
                msgspec.convert(given[name], KNOWN_INTENT)
            except msgspec.ValidationError:
                msgspec.convert(given[name], ANY_INTENT)
                found = slips(given[name])
        name = "base_characterization"
        if given[name]:
            msgspec.convert(given[name], EARLIER_RECORD)
    except msgspec.ValidationError as error:
        raise wrong_entry(error, line_of(place, number), ANY_INTENT, f"$.{name}") from None
    return found


def slips(intent: Iterable[str]) -> list[str]:
    """A warning for each key that is near a known one but not it."""
    near = [(key, _near(key)) for key in intent if key not in INTENT]
    return [f"$.query_intent: {key!r} is not read, but {known} is" for key, known in near if known]


@lru_cache(1000)
def _near(key: str) -> str | None:
    """The known key that was probably meant."""
    from difflib import get_close_matches

    return next(iter(get_close_matches(key.lower(), INTENT, 1, NEAR)), None)


def line_of(place: str, number: int | None) -> str:
    return place if number is None else f"{place}:{number}"


_plain = RequestDecoder()


def decode_request(data: bytes, place: str, number: int | None = None) -> dict[str, Any]:
    """The checked arguments in a line of a place, or in all of it, without nulls."""
    return _given(_plain.decode(data, place, number))


def check(value: Any, place: str) -> dict[str, Any]:
    """The same of a value that was decoded before."""
    return _given(_plain.check(value, place))


def _given(decoded: Decoded) -> dict[str, Any]:
    return {name: value for name, value in decoded.arguments.items() if value is not None}


def characterize(
    arguments: Mapping[str, Any], place: str, number: int | None = None
) -> Mapping[str, Any]:
    """The record of checked arguments."""
    if arguments.get("step") is None:
        what = "$.step: expected the name of the planning step"
        raise InputError(line_of(place, number), what, kind="no step")
    try:
        record: Mapping[str, Any] = characterize_material(**arguments)
    except Exception as error:  # any error that a value raises while it is read
        kind = f"the values give {type(error).__name__}"
        raise InputError(line_of(place, number), f"{kind}: {error}", kind=kind) from error
    return record
