"""Which field of the record a message of its evidence speaks of."""

# By how the message begins.
FIELDS = {
    "element definitions declare species ": "species",
    "user query explicitly named species ": "species",
    "reused prior-step species ": "species",
    "prose-scanned fallback species ": "species",
    "user query explicitly wrote formula ": "formula_hint",
    "formula hint ": "formula_hint",
    "structure mode=": "structure_mode",
    "structure archetype=": "structure_archetype",
    "electronic class=": "electronic_class",
    "correlation class=": "correlation_class",
    "user query flagged as ": "intent_complexity",
    "magnetic class=": "magnetic_class",
    "material family=": "material_family",
    "user query requested ": "requested_energy_unit",
    "query requested ": "requested_energy_unit",
}


def field_of(message: str) -> str | None:
    return next((field for start, field in FIELDS.items() if message.startswith(start)), None)
