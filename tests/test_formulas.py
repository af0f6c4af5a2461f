"""Formulas in text: the candidates, the acronyms among them, and the parts with their counts."""

import functools
import sys

import pytest

from tavik_agent import material_characterization as mc


class Written:
    def __init__(self, text, empty=False):
        self.text, self.empty = text, empty

    def __str__(self):
        return self.text

    def __bool__(self):
        return not self.empty


# A lower-case start, blanks, unknown symbols, punctuation, digits and letters of other kinds.
NO_FORMULAS = "fe2o3|FeO3x|Fe-O|Fe2O3 | Fe|Ba0.5|2|Fe_2|FeXy|Xy2|Cs|FE|Fe²|Fe½|\uff26eO|Fe\u0301|Fé"


@pytest.mark.parametrize(
    ("token", "parts"),
    [
        ("Fe2O3", [("Fe", 2), ("O", 3)]),
        ("CO", [("C", 1), ("O", 1)]),
        ("Co", [("Co", 1)]),
        ("CH3CH3", [("C", 1), ("H", 3), ("C", 1), ("H", 3)]),
        ("Fe0O02", [("Fe", 0), ("O", 2)]),
        ("H" * 9 + "2", [("H", 1)] * 8 + [("H", 2)]),  # more parts than a token may have
        ("Fe\u0662O\u0969", [("Fe", 2), ("O", 3)]),
        ("H1\u0662\uff13\U0001d7dc", [("H", 1234)]),
        (Written("NiO"), [("Ni", 1), ("O", 1)]),
        (Written("NiO", empty=True), []),
        *((token, []) for token in NO_FORMULAS.split("|")),
        *((token, []) for token in ("Fe\0", "Fe\ud800", "", None, 0, 7, False, ["NiO"], {})),
    ],
)
def test_parts(token, parts):
    assert mc._formula_parts(token) == parts


@pytest.mark.parametrize("nine", ["9", "\u0669", "\U0001d7ff"], ids=["ascii", "arabic", "astral"])
@pytest.mark.parametrize("length", [18, 19, 20, 700, 4300, 4301, 20_000])
def test_counts_are_exact_at_any_length(request, nine, length):
    request.addfinalizer(
        functools.partial(sys.set_int_max_str_digits, sys.get_int_max_str_digits())
    )
    sys.set_int_max_str_digits(640)
    assert mc._formula_parts("H" + nine * length + "O") == [("H", 10**length - 1), ("O", 1)]
    assert mc._formula_parts("H" + "0" * length + nine) == [("H", 9)]


def test_symbols_are_looked_up_in_order_up_to_the_first_unknown(monkeypatch):
    asked = []

    class Known:
        def __contains__(self, symbol):
            asked.append(symbol)
            return symbol != "Xy"

    monkeypatch.setattr(mc, "KNOWN_ELEMENT_SYMBOLS", Known())
    assert mc._formula_parts("Fe2XyO") == []
    assert mc._formula_parts("Fe-O") == []  # rejected before any symbol is looked up
    assert mc._formula_parts("QqQ") == [("Qq", 1), ("Q", 1)]
    assert asked == ["Fe", "Xy", "Qq", "Q"]


@pytest.mark.parametrize(
    ("text", "candidates"),
    [
        ("The Fe2O3-based MoS2/WS2 (NiO)", "Fe2O3 MoS2 WS2 NiO"),
        ("Ba0.5Sr0.5TiO3", "Ba0"),
        ("In As I He No Be", "In As I He No Be"),
        ("H" * 9 + " " + "H" * 8, "H" * 8),
        ("H1" * 9 + " O", "O"),
        # glued to a word character, and next to what is none
        ("1Fe2O3 xFe2O3 Fe2O3s Fe_2 _Fe FeÉ ÉFe Fe² Fe½ ªFe \u0662Fe", ""),
        ("\0NiO\0 \ud800CO\udfff NaCl\u0301 \u2019H2O\u2019", "NiO CO NaCl H2O"),
        ("Fe\u0662O", "Fe\u0662O"),
        # acronyms, compared with the token in capitals: "scf" is never met
        ("DFT+U on NiO; HSE HSe Dft SCF", "U NiO SCF"),
        (Written("NiO"), "NiO"),
        (Written("NiO", empty=True), ""),
        (["NiO", "CO"], "NiO CO"),
    ],
)
def test_candidates(record, text, candidates):
    calls = record(_formula_parts=[])
    assert mc._species_from_text(text) == []
    assert mc._formula_hint(text, []) == ""
    assert calls == [("_formula_parts", (token,), {}) for token in candidates.split()] * 2


def test_acronyms_are_read_from_the_bound_set(monkeypatch):
    monkeypatch.setattr(mc, "_NON_FORMULA_TOKENS", ["NIO"])
    assert mc._species_from_text("NiO HSe") == ["H", "Se"]
