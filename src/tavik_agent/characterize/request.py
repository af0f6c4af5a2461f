"""A request: a JSON object that holds the arguments of one call. It is checked before the call is
made, so that a wrong entry is reported by its path. A null means that the entry was left out.
"""

from collections.abc import Mapping
from contextlib import suppress
from difflib import get_close_matches
from functools import lru_cache
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
from .files import InputError, json_bytes, parse_json
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
WHOLE = {name: accepted(ARGUMENTS[name]) for name in ("base_characterization", "query_intent")}
INTENT_KEYS = get_type_hints(QueryIntent).keys()
NEAR = 0.75  # the ratio of two keys from which one is taken for a slip of the other


class RequestDecoder:
    """Decodes and checks requests that may have, beside the arguments, the entries to keep."""

    def __init__(self, kept: tuple[str, ...] = ()) -> None:
        self.kept = kept
        self._beside = [name for name in kept if name not in ARGUMENTS]
        fields: list[tuple[str, Any, Any]] = [
            (name, dict[str, Any] | None if name in WHOLE else accepted(hint), None)
            for name, hint in ARGUMENTS.items()
        ]
        fields += [(name, msgspec.Raw, msgspec.Raw()) for name in self._beside]
        struct = msgspec.defstruct("Request", fields, forbid_unknown_fields=True, gc=False)
        self._decoder = msgspec.json.Decoder(struct)

    def decode(
        self, line: bytes, place: str, number: int | None = None
    ) -> tuple[dict[str, Any], bytes]:
        """The checked arguments without nulls, and the kept entries as they stood, in JSON."""
        try:
            if not line.isascii():
                line.decode()  # msgspec does not look at text that is not asked for
            request = self._decoder.decode(line)
        except msgspec.ValidationError as error:
            raise wrong_entry(error, line_of(place, number)) from None
        except (msgspec.DecodeError, UnicodeDecodeError, RecursionError):
            # Python's own decoder takes lone surrogates, and says where JSON is wrong.
            value = parse_json(line, place, number or 1)
            return self.check(value, place, number), self._kept_in(value)
        arguments = _checked(request, place, number, has_nulls=b"null" in line)
        return arguments, self._kept_raw(request) if self.kept else b""

    def check(self, value: Any, place: str, number: int | None = None) -> dict[str, Any]:
        """The arguments in a value that was decoded before, checked and without nulls."""
        if isinstance(value, dict):
            value = {name: value[name] for name in value if name not in self._beside}
        try:
            request = msgspec.convert(value, self._decoder.type)
        except msgspec.ValidationError as error:
            raise wrong_entry(error, line_of(place, number)) from None
        return _checked(request, place, number, has_nulls=True)

    def kept_of_bad(self, line: bytes) -> bytes:
        """The kept entries of a line that is no good request, as far as it is JSON."""
        with suppress(InputError):
            if self.kept:
                return self._kept_in(parse_json(line, ""))
        return b""

    def _kept_raw(self, request: Any) -> bytes:
        values = {name: getattr(request, name) for name in self.kept}
        return b",".join(
            b"%b:%b" % (msgspec.json.encode(name), msgspec.json.encode(value))
            for name, value in values.items()
            if value is not None and value not in (b"", b"null")
        )

    def _kept_in(self, value: Any) -> bytes:
        if not isinstance(value, dict):
            return b""
        values = {name: value[name] for name in self.kept if value.get(name) is not None}
        return json_bytes(values, "")[1:-2]

    @staticmethod
    def slips(arguments: Mapping[str, Any]) -> list[str]:
        """What to warn of: a key of the intent that is near a known one but not it."""
        intent = arguments.get("query_intent")
        if not intent or intent.keys() <= INTENT_KEYS:
            return []
        near = [(key, _near(key)) for key in intent if key not in INTENT_KEYS]
        return [f"$.query_intent: {key!r} is not read, but {it} is" for key, it in near if it]


@lru_cache(1000)
def _near(key: str) -> str | None:
    """The known key that was probably meant."""
    return next(iter(get_close_matches(key.lower(), INTENT_KEYS, 1, NEAR)), None)


def _checked(request: Any, place: str, number: int | None, *, has_nulls: bool) -> dict[str, Any]:
    given = msgspec.structs.asdict(request)
    arguments = {name: given[name] for name in ARGUMENTS if given[name] is not None}
    for name, hint in WHOLE.items():
        if name in arguments:
            convert(arguments[name], hint, line_of(place, number), f"$.{name}")
    return without_nulls(arguments) if has_nulls else arguments


def line_of(place: str, number: int | None) -> str:
    return place if number is None else f"{place}:{number}"


_plain = RequestDecoder()
check = _plain.check
slips = _plain.slips


def decode_request(data: bytes, place: str, number: int | None = None) -> dict[str, Any]:
    """The checked arguments in a line of a place, or in all of it, without nulls."""
    return _plain.decode(data, place, number)[0]


def characterize(
    arguments: Mapping[str, Any], place: str, number: int | None = None
) -> Mapping[str, Any]:
    """The record of checked arguments."""
    if "step" not in arguments:
        what = "$.step: expected the name of the planning step"
        raise InputError(line_of(place, number), what, kind="no step")
    try:
        record: Mapping[str, Any] = characterize_material(**arguments)
    except Exception as error:  # any error that a value raises while it is read
        kind = f"the values give {type(error).__name__}"
        raise InputError(line_of(place, number), f"{kind}: {error}", kind=kind) from error
    return record
