"""A planner's step: a request in, the settings of a calculation out. Made to be pasted.

Usage: settings_for_request.py [FILE]. FILE holds the arguments of one call as a JSON object;
without it a request is made as a planner would make it. What the record leaves open is not
guessed: the setting is the safe one, and the question stands under "ask". A type checker refuses
a choice that leaves a label out.
"""

import json
import sys
from typing import TypedDict, assert_never

from tavik_agent.characterization_types import (
    CharacterizationRecord,
    ElectronicClass,
    MagneticClass,
    QueryIntent,
    StepParameters,
    StructureMode,
)

from tavik_agent.material_characterization import characterize_material


class Settings(TypedDict):
    occupations: str
    spin: str
    moments: str
    hubbard_u: bool
    boundary: str
    energy_unit: str
    ask: list[str]  # what to ask the user before the calculation starts
    because: list[str]


def settings_for(record: CharacterizationRecord) -> Settings:
    spin, moments = spin_for(record["magnetic_class"])
    stated = record["explicit_spin_mode"].replace("-", "")
    correlation = record["correlation_class"]
    questions = {
        "Which elements is it made of?": not record["species"],
        "Is it magnetic?": record["magnetic_class"] == "unknown",
        "Is a Hubbard correction wanted?": correlation == "unknown",
        "Collinear as stated, or as the magnetism suggests?": (stated, spin)
        == ("collinear", "noncollinear"),
    }
    spin = stated or spin
    return {
        "occupations": occupations_for(record["electronic_class"], spin),
        "spin": spin,
        "moments": moments,
        "hubbard_u": correlation == "dftu_sensitive",
        "boundary": boundary_for(record["structure_mode"]),
        "energy_unit": record["requested_energy_unit"] or "eV",
        "ask": [question for question, is_open in questions.items() if is_open],
        "because": record["evidence"],
    }


def occupations_for(electronic_class: ElectronicClass, spin: str) -> str:
    match electronic_class:
        case "metal" | "unknown":  # smearing does a gapped system little harm
            return "cold smearing"
        case "semiconductor" | "insulator" if spin == "none":
            return "fixed"
        case "semiconductor" | "insulator":  # codes refuse fixed occupations with free moments
            return "narrow Gaussian smearing"
        case _:
            assert_never(electronic_class)


def spin_for(magnetic_class: MagneticClass) -> tuple[str, str]:
    match magnetic_class:
        case "nonmagnetic":
            return "none", "zero"
        case "simple_ferromagnet" | "collinear_magnetic" | "unknown":
            return "collinear", "parallel"
        case "template_antiferromagnet":
            return "collinear", "antiferromagnetic template"
        case "noncollinear_template" | "complex_magnetic":
            return "noncollinear", "noncollinear template"
        case _:
            assert_never(magnetic_class)


def boundary_for(structure_mode: StructureMode) -> str:
    match structure_mode:
        case "molecule_or_cluster":
            return "isolated"
        case "periodic_bulk" | "external_structure" | "unknown":
            return "periodic"
        case _:
            assert_never(structure_mode)


def planned_record() -> CharacterizationRecord:
    """Two steps of a plan: the second reads the intent and is merged into the first."""
    parameters: StepParameters = {
        "element": [{"species": "Ni"}, {"species": "O"}],
        "kpoints": [6, 6, 6],  # a planner's own
    }
    intent: QueryIntent = {"formula": "NiO", "magnetism": "antiferromagnetic"}
    relax = characterize_material(step="relax", step_params=parameters, query_text="Relax NiO")
    return characterize_material(step="bands", base_characterization=relax, query_intent=intent)


def main() -> None:
    if len(sys.argv) > 1:
        with open(sys.argv[1], encoding="utf-8") as file:
            record = characterize_material(**json.load(file))
    else:
        record = planned_record()
    print(json.dumps(settings_for(record), indent=2, ensure_ascii=False))


if __name__ == "__main__":
    main()
