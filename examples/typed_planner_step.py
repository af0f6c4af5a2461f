"""How a planner uses the module with every type checked: two steps of a plan, the second merged.

Prints the settings chosen for each step. A type checker refuses a choice that leaves a label out.
"""

from typing import assert_never

from tavik_agent.characterization_types import (
    CharacterizationRecord,
    ElectronicClass,
    EnergyUnit,
    MagneticClass,
    QueryIntent,
    StepParameters,
)

from tavik_agent import material_characterization as mc

INTENT: QueryIntent = {
    "species": ["Ni", "O"],
    "formula": "NiO",
    "correlation": "dft+u",
    "magnetism": "antiferromagnetic",
    "complexity_hint": None,
    "units": {"energy": "eV"},
    "structure_description": "rocksalt",
}
RELAX: StepParameters = {
    "element": [{"species": "Ni"}, {"species": "O"}],
    "atom": {"fracxyz": [["Ni", 0.0, 0.0, 0.0], ["O", 0.5, 0.5, 0.5]]},
    "domain": {"latvec": [[0.0, 2.1, 2.1], [2.1, 0.0, 2.1], [2.1, 2.1, 0.0]]},
    "kpoints": [6, 6, 6],  # a planner's own
}


def smearing(electronic_class: ElectronicClass) -> str:
    match electronic_class:
        case "metal" | "unknown":
            return "cold smearing"
        case "semiconductor" | "insulator":
            return "fixed occupations"
        case _:
            assert_never(electronic_class)


def spin(magnetic_class: MagneticClass) -> str:
    match magnetic_class:
        case "nonmagnetic":
            return "unpolarised"
        case "simple_ferromagnet" | "collinear_magnetic":
            return "collinear, parallel moments"
        case "template_antiferromagnet":
            return "collinear, moments from a template"
        case "noncollinear_template" | "complex_magnetic":
            return "noncollinear"
        case "unknown":
            return "ask"
        case _:
            assert_never(magnetic_class)


def describe(record: CharacterizationRecord) -> str:
    unit: EnergyUnit = record["requested_energy_unit"]
    hubbard = "+U" if record["correlation_class"] == "dftu_sensitive" else "no U"
    choices = [smearing(record["electronic_class"]), spin(record["magnetic_class"]), hubbard]
    return f"{record['step']} {record['formula_hint']}: {', '.join(choices)}; energies in {unit}"


def main() -> None:
    relax = mc.characterize_material(
        step="relax",
        step_params=RELAX,
        query_text="Relax NiO, then its bands",
        findings=["converged in 12 steps"],
        planner_manifest={"purpose": "band structure", "notes": ""},
        query_intent=INTENT,
    )
    bands = mc.characterize_material(
        step="bands",
        previous_steps_params={"relax": RELAX},
        base_characterization=relax,
    )
    print(describe(relax))
    print(describe(bands))
    alone = mc.classify_system_class(
        relax["species"], formula_hint="NiO", explicit_text="", structure_archetype=""
    )
    print(f"by formula alone: {alone}; listed as correlated: {'NiO' in mc.DFTU_SENSITIVE_FORMULAS}")


if __name__ == "__main__":
    main()
