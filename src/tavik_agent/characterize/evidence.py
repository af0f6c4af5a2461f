"""Which field of the record a message of its evidence speaks of, by how the message begins."""

from typing import Literal, get_args, get_origin, get_type_hints

from tavik_agent.characterization_types import CharacterizationRecord


def _class_fields() -> list[str]:
    """The fields that hold a class label: a closed set of words in which none is empty."""
    hints = get_type_hints(CharacterizationRecord).items()
    return [name for name, hint in hints if get_origin(hint) is Literal and all(get_args(hint))]


# A class label is reported under the name of its field, everything else in words of its own.
FIELDS = {f"{name.replace('_', ' ')}=": name for name in _class_fields()} | {
    "element definitions declare species ": "species",
    "user query explicitly named species ": "species",
    "reused prior-step species ": "species",
    "prose-scanned fallback species ": "species",
    "user query explicitly wrote formula ": "formula_hint",
    "formula hint ": "formula_hint",
    "user query flagged as ": "intent_complexity",
    "user query requested ": "requested_energy_unit",
    "query requested ": "requested_energy_unit",
}


def field_of(message: str) -> str | None:
    return next((field for start, field in FIELDS.items() if message.startswith(start)), None)
