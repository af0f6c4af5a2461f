"""The energy unit that was asked for and the explicit spin mode."""

import collections

import pytest

from tavik_agent import material_characterization as mc


def characterize(text="", **intent):
    return mc.characterize_material(step="", findings=[text], query_intent=intent)


def check_unit(record, unit, message):
    assert record["requested_energy_unit"] == unit
    assert [line for line in record["evidence"] if "energy" in line] == (
        [message] if message else []
    )


UNITS_OF_INTENT = {
    "eV": ("eV", "Electron-Volts", "electron volt", "-eV-", "\u3000EV\n"),
    "Hartree": ("Ha", "hartree", "HARTREES\x1c", "atomic-unit", "Atomic Units", "a.u.", " AU "),
    "": (
        "electron--volt",
        "electronvolt",
        "kcal/mol",
        "a.u",
        "-",
        None,
        0,
        ["eV"],
        {"eV": 1},
        27.2,
    ),
}


@pytest.mark.parametrize("unit", UNITS_OF_INTENT)
def test_unit_of_the_intent(unit):
    for energy in UNITS_OF_INTENT[unit]:
        units = collections.ChainMap({}, {"energy": energy})
        message = f"user query requested {unit} energy semantics (LLM intent)"
        check_unit(characterize(units=units), unit, message if unit else "")
        if not unit:  # what is not recognised does not keep the text from being read
            message = "query requested eV energy semantics (prose fallback)"
            check_unit(characterize("eV", units=units), "eV", message)


@pytest.mark.parametrize("units", ["Ha", ["energy"], 3, ("energy", "Ha"), None])
def test_units_that_are_no_mapping(units):
    assert characterize("in eV", units=units)["requested_energy_unit"] == "eV"


@pytest.mark.parametrize(
    ("unit", "texts"),
    [
        ("eV", "in eV.|EV|\0ev\ud800|Ha/eV|ev\u0301|eV-eV2|Hartree or eV"),
        ("eV", "electrons, electron volts|Electron-Volt|electronvolt|electron\u3000volts"),
        ("eV", "electron\nvolt|electron\x1cvolt"),
        ("", "|every energy|1eV|meV|µeV|eV²|eV_|\u0663ev|electron  volt|electron\u2013volt|volts"),
        ("", "electron voltss|electron\u200bvolt|electron volté|xelectron volt"),
        ("Hartree", "mHa to Ha|HARTREE|hartrees|(ha)|atomic unity atomic units|atomic\x1funit"),
        ("Hartree", "Atomic \t\u2028\x85unit"),
        (
            "",
            "atomicunits|atomic-units|atomic\u200bunit|atomic unitse|subatomic units|hartreeé|haha",
        ),
        # the closing boundary asks for a word character right behind the last period
        ("", "a.u.|in a.u. or|a.u.,|ba.u.x|a.u|a.u.\u0301x"),
        ("Hartree", "a.u.x|(a.u.é|a.u.2|a.u._|a.u. a.u.\u0663"),
    ],
)
def test_unit_of_the_text(unit, texts):
    message = f"query requested {unit} energy semantics (prose fallback)" if unit else ""
    for text in texts.split("|"):
        check_unit(characterize(text), unit, message)


@pytest.mark.parametrize("energy", ["eV", None])  # which text was read before must not matter
@pytest.mark.parametrize(
    ("magnetism", "text", "mode"),
    [
        (" Non-Collinear ", "collinear", "non-collinear"),
        ("ferromagnetic", "", "collinear"),
        ("AntiFerromagnetic", "non-collinear", "collinear"),
        ("ferrimagnetic", "noncollinear", "collinear"),
        ("nonmagnetic", "Non-Collinear", "non-collinear"),
        ("noncollinear", "col linear", ""),
        (None, "collinear, then NONCOLLINEAR", "non-collinear"),
        (["ferromagnetic"], "non xcollinearly", "collinear"),
    ],
)
def test_spin_mode(magnetism, text, mode, energy):
    found = characterize(text, magnetism=magnetism, units={"energy": energy})
    assert found["explicit_spin_mode"] == mode
