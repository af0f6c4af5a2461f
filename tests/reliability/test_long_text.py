"""Texts of every length around the blocks of 16 to 64 bytes that a scan may read at once."""

import random

import pytest

from tavik_agent import material_characterization as mc

FOUND = [
    ("lithium iron phosphate", "species", ["Li", "Fe", "P", "O"]),
    ("Fe2O3", "species", ["Fe", "O"]),
    ("spin orbit", "magnetic_class", "noncollinear_template"),
    ("eV", "requested_energy_unit", "eV"),
    ("atomic \n units", "requested_energy_unit", "Hartree"),
]


@pytest.mark.parametrize("behind", ["", " ", " " + "." * 90, ". Xy " * 30])
@pytest.mark.parametrize(("words", "key", "value"), FOUND)
def test_found_wherever_it_stands(words, key, value, behind):
    blanks = [i for i, character in enumerate(words) if character == " "]
    for before in ("." * size + " " for size in range(140)):
        texts = [(before + words + behind, ""), (before, words + behind)]
        texts += [(before + words[:i], words[i + 1 :] + behind) for i in blanks]
        for query, finding in texts:
            found = mc.characterize_material(step="", query_text=query, findings=[finding])
            assert found[key] == value, (query, finding)


def test_phrases_by_index_and_row_by_row(monkeypatch):
    choose = random.Random(1)
    phrases = [*mc.FORMULA_ALIASES, *mc.ELEMENT_NAME_ALIASES]
    words = sorted({word for phrase in phrases for word in phrase.split()})

    def piece():
        phrase = choose.choice(phrases)
        cut = phrase.rsplit(" ", choose.randrange(3))[0]
        return choose.choice([cut, phrase, choose.choice(words), "of the", ""])

    texts = [" ".join(piece() for _ in range(choose.randint(1, 60))) for _ in range(60)]
    indexed = [mc._species_from_text(text) for text in texts]
    for name in ("FORMULA_ALIASES", "ELEMENT_NAME_ALIASES"):
        monkeypatch.setattr(mc, name, dict(getattr(mc, name)))
    assert indexed == [mc._species_from_text(text) for text in texts]
