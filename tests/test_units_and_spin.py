"""The energy unit that was asked for and the explicit spin mode."""

import collections

import pytest

from tavik_agent import material_characterization as mc

UNITS_OF_INTENT = {
    "eV": ["eV", "Electron-Volts", "electron volt", "-eV-", "\u3000EV\n"],
    "Hartree": ["Ha", "hartree", "HARTREES\x1c", "atomic-unit", "Atomic Units", "a.u.", " AU "],
    "": ["electron--volt", "electronvolt", "kcal/mol", "a.u", "-", None, 0, ["eV"], {"eV": 1}],
}


def characterize(text="", **intent):
    return mc.characterize_material(step="", findings=[text], query_intent=intent)


@pytest.mark.parametrize("unit", UNITS_OF_INTENT)
@pytest.mark.parametrize(("text", "in_text"), [("", ""), ("in eV", "eV"), ("1 Ha", "Hartree")])
def test_unit(unit, text, in_text):
    message = f"user query requested {unit} energy semantics (LLM intent)"
    if not unit:  # what is not recognised does not keep the text from being read
        message = f"query requested {in_text} energy semantics (prose fallback)"
    for energy in UNITS_OF_INTENT[unit]:
        found = characterize(text, units=collections.ChainMap({}, {"energy": energy}))
        assert found["requested_energy_unit"] == (unit or in_text)
        reported = [line for line in found["evidence"] if "energy" in line]
        assert reported == [message] * bool(unit or in_text)


@pytest.mark.parametrize("units", ["Ha", ["energy"], 3, ("energy", "Ha"), None])
def test_units_that_are_no_mapping(units):
    assert characterize("in eV", units=units)["requested_energy_unit"] == "eV"


SPIN_MODES = [
    (" Non-Collinear ", "collinear", "non-collinear"),
    ("ferromagnetic", "", "collinear"),
    ("AntiFerromagnetic", "non-collinear", "collinear"),
    ("ferrimagnetic", "noncollinear", "collinear"),
    ("nonmagnetic", "Non-Collinear", "non-collinear"),
    ("noncollinear", "col linear", ""),
    (None, "collinear, then NONCOLLINEAR", "non-collinear"),
    (["ferromagnetic"], "non xcollinearly", "collinear"),
]


@pytest.mark.parametrize(("magnetism", "text", "mode"), SPIN_MODES)
def test_spin_mode(magnetism, text, mode):
    assert characterize(text, magnetism=magnetism)["explicit_spin_mode"] == mode
