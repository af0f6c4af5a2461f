"""A good call of every function. The arguments are made anew each time."""

import functools

FUNCTIONS = {
    "characterize_material": lambda: {
        "step": "relax",
        "step_params": {"element": [{"species": "fe"}, {"species": "O"}], "atom": {"xyz": [1]}},
        "query_text": "Relax antiferromagnetic iron oxide, Fe2O3, with DFT+U in eV, 5 Å of vacuum",
        "findings": ["rutile TiO2", 3, ["x"]],
        "planner_manifest": {"purpose": "P", "notes": {"n": 1}},
        "previous_steps_params": {"a": {"element": {"Ni": 1}}},
        "base_characterization": {"species": ["Cu"], "evidence": ["A"], "confidence": "0.1"},
        "query_intent": {"species": ["fe", "o"], "units": {"energy": "Ha"}, "magnetism": "?"},
    },
    "classify_system_class": lambda: {"species": ["Fe"], "explicit_text": "an alloy"},
    "_combined_text": lambda: {"parts": ["a ", {"b": 1}, None]},
    "_species_from_element_block": lambda: {"element_block": {"Fe": {"species": " fe"}, "O": 1}},
    "_formula_parts": lambda: {"token": "Fe1234567890123456789012O3"},
    "_species_from_text": lambda: {"text": "quartz, graphite and iron, with NiO and Ångström"},
    "_formula_hint": lambda: {"text": "no such thing", "species": ["O", "Ni"]},
    "_structure_mode": lambda: {"step_params": {"domain": {}}, "combined_text": "bulk"},
    "_structure_archetype": lambda: (
        {"structure_mode": "periodic_bulk", "combined_text": ""}
        | {"query_text": "vacuum  slab ", "query_intent": {"structure_description": "stm"}}
    ),
    "_electronic_class": lambda: {"species": ["Si"], "formula_hint": "", "explicit_text": ""},
    "_correlation_class": lambda: {"species": ["Cu"], "formula_hint": "", "combined_text": "x"},
    "_magnetic_class": lambda: (
        {"species": ["Cu", "Zn"]}
        | dict.fromkeys(["formula_hint", "combined_text", "correlation_class"], "")
    ),
    "_material_family": lambda: (
        {"species": ["Cu"], "electronic_class": "metal"}
        | dict.fromkeys(["structure_mode", "formula_hint"], "")
    ),
}
# Calls that between them read every table and call every function.
TEXTS = [functools.partial(dict, step="", query_text=text) for text in ("NiO", "Mn", "iron oxide")]
CALLS = [*FUNCTIONS.items(), *(("characterize_material", text) for text in TEXTS)]


def call(module, name, arguments):
    if name == "_combined_text":
        return module._combined_text(*arguments.values())
    return getattr(module, name)(**arguments)


def result(module, name):
    return call(module, name, FUNCTIONS[name]())
