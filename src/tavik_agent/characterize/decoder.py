"""Requests are decoded and checked in one step by msgspec. What is accepted follows from the types
of the package, and is wider: a null stands for what was left out, a word of the intent may be any
text, an iterable is a list.
"""

import re
from collections.abc import Iterable, Mapping
from keyword import iskeyword
from types import NoneType, UnionType
from typing import (
    Any,
    Literal,
    TypedDict,
    Union,
    get_args,
    get_origin,
    get_type_hints,
    is_typeddict,
)

import msgspec

from .files import InputError

WRONG = re.compile(r"Expected `(.+?)(?: \| null)?`, got `(.+?)`(?: - at `(.+)`)?")
UNKNOWN_ENTRY = "unknown entry"
UNKNOWN = re.compile(r"Object contains unknown field `(.+)`")


def accepted(hint: Any) -> Any:
    """The type to decode where a type of the package has the hint; None may stand for any value."""
    origin, parts = get_origin(hint), get_args(hint)
    if hint in (object, Any):
        return Any
    if is_typeddict(hint):
        hint = _typed_dict(hint.__name__, accepted_fields(hint), total=False)
    elif origin is Literal:
        hint = str
    elif origin in (list, Iterable):
        hint = list[accepted(parts[0])]  # type: ignore[misc]
    elif origin is Mapping:
        hint = dict[str, accepted(parts[1])]  # type: ignore[misc]
    elif origin in (Union, UnionType):
        hint = Union[*(accepted(part) for part in parts if part is not NoneType)]
    return hint | None


def accepted_fields(hint: Any) -> dict[str, Any]:
    return {name: accepted(field) for name, field in get_type_hints(hint).items()}


def struct(name: str, fields: dict[str, Any], *, closed: bool) -> type[msgspec.Struct]:
    """An object whose entries may be left out; a closed one has no others."""
    optional = [(attribute(field), hint, None) for field, hint in fields.items()]
    rename = {attribute(field): field for field in fields}
    return msgspec.defstruct(name, optional, forbid_unknown_fields=closed, gc=False, rename=rename)


def attribute(entry: str) -> str:
    """The attribute of a struct for an entry, which need not be a Python name."""
    plain = entry.isidentifier() and not iskeyword(entry) and not entry.startswith("_")
    return entry if plain else f"_{entry.encode().hex()}"


_typed_dict: Any = TypedDict


def wrong_entry(
    error: msgspec.ValidationError,
    place: str,
    hint: type[msgspec.Struct],
    path: str = "$",
    kind: str = "",
) -> InputError:
    """What msgspec found wrong in a value of that type at that path, by the path of the entry."""
    text = str(error)
    if found := WRONG.fullmatch(text):
        expected, got, at = found.groups()
        what, at = f"expected {expected}, got {got}", at or "$"
    elif found := UNKNOWN.fullmatch(text):
        known = ", ".join(hint.__struct_fields__)
        what = f"{path}: {UNKNOWN_ENTRY} {found[1]!r}; expected {known}"
        return InputError(place, what, kind=UNKNOWN_ENTRY)
    else:
        what, _, at = text.partition(" - at ")
        what, at = what[:1].lower() + what[1:], at.strip("`") or "$"
    at = at.removeprefix("$")
    kind = f"wrong entry {kind or path}{re.sub(r'\[\d+\]', '[]', at)}"
    return InputError(place, f"{path}{at}: {what}", kind=kind)
