"""The scanners against the patterns and the containment tests that define them, on made-up text."""

import re

import pytest
from hypothesis import given
from hypothesis import strategies as st

from tavik_agent import material_characterization as mc

# Word characters that are no ASCII letters, characters that only look like word characters, digits
# of several scripts, white space and what resembles it, and characters that lower unusually.
NEIGHBOURS = (
    "éªß\u017fİ\u212a\u03a3ǅ\uff26\u4e2d\U0001d400_\u0301\u200d\u200b\u2019\ud800\udfff\0.,(+"
)
NEIGHBOURS += (
    "029\u0663\u096f\uff12\U0001d7d8²½\u2163① \t\n\r\x0b\x1c\x1f\x85\xa0\u2003\u3000\u2028\u180e"
)
NEIGHBOURS += "-\u2010\u2013"
ANY = st.characters(exclude_categories=())


def texts(pieces):
    """Text of the pieces, their neighbours and, now and then, any character at all."""
    piece = st.sampled_from(pieces.split("|"))
    return st.lists(piece | piece | st.sampled_from(NEIGHBOURS) | ANY, max_size=14).map("".join)


ELEMENTS = "Fe|O|H|Xy|In|DFT|HSe|Co|CO|E|e|x|2|3|10| |-"


def parts_by_definition(token):
    parts = mc._FORMULA_PART_RE.findall(token)
    if "".join(symbol + digits for symbol, digits in parts) != token:
        return []
    if not all(symbol in mc.KNOWN_ELEMENT_SYMBOLS for symbol, _ in parts):
        return []
    return [(symbol, int(digits) if digits else 1) for symbol, digits in parts]


@given(texts(ELEMENTS))
def test_formulas_of_a_text(text):
    tokens = mc._FORMULA_TOKEN_RE.findall(text)
    candidates = [token for token in tokens if token.upper() not in mc._NON_FORMULA_TOKENS]
    accepted = {token: parts_by_definition(token) for token in candidates}
    symbols = [symbol for parts in accepted.values() for symbol, _ in parts]
    assert mc._species_from_text(text) == list(dict.fromkeys(symbols))
    assert mc._formula_hint(text, []) == next((t for t, parts in accepted.items() if parts), "")
    seen = []
    with pytest.MonkeyPatch.context() as patch:
        patch.setattr(mc, "_formula_parts", lambda token: seen.append(token) or [])
        mc._species_from_text(text)
        mc._formula_hint(text, [])
    assert seen == candidates * 2


@given(texts(ELEMENTS) | st.from_regex(r"([A-Z][a-z]?\d*){1,12}", fullmatch=True))
def test_parts_of_a_token(token):
    assert mc._formula_parts(token) == parts_by_definition(token)


@given(texts("sample|tip|Sample|TIP|s| |-"))
def test_sample_and_tip(text):
    found = mc._structure_archetype(structure_mode="", combined_text=text)
    both = all(re.search(pattern, text.lower()) for pattern in (r"\bsample\b", r"\btip\b"))
    assert (found == "stm_sample_tip") == both


@given(texts("metal|metallic|Metal|METALLIC|s|ic"))
def test_metal(text):
    found = mc.classify_system_class([], explicit_text=text)
    assert (found == "metal") == bool(re.search(r"\bmetallic\b|\bmetal\b", text.lower()))


@given(
    texts("eV|EV|electron|Electron|volt|volts|s|-| ")
    | texts("Ha|hartree|Hartrees|atomic|Atomic|unit|Units|a.u.|A.U|s| ")
)
def test_energy_units(text):
    lowered = text.strip().lower()
    unit = ""
    if re.search(r"\b(?:ev|electron[-\s]?volts?)\b", lowered):
        unit = "eV"
    elif re.search(r"\b(?:ha|hartrees?|atomic\s+units?|a\.u\.)\b", lowered):
        unit = "Hartree"
    assert mc.characterize_material(step="", query_text=text)["requested_energy_unit"] == unit


# Keywords that share beginnings and endings, whole and cut anywhere.
PERIODIC = "bulk|crystal|fcc|bcc|hcp|supercell|slab|surface"
CORRELATED = "dft+u|lda+u|hubbard|correlated"
MAGNETIC = {
    "noncollinear_template": "non-collinear|noncollinear|spin-orbit|spin orbit|soc",
    "template_antiferromagnet": "antiferrom|ferrimag|afm|ferri",
    "complex_magnetic": "alpha-mn|alpha mn|alpha manganese",
}
WORDS = st.sampled_from("|".join([PERIODIC, CORRELATED, *MAGNETIC.values()]).split("|"))
CUT = st.builds(lambda word, a, b: word[a:b], WORDS, st.integers(0, 3), st.integers(2, 15))


@given(st.lists(WORDS | CUT | CUT | st.sampled_from(NEIGHBOURS), max_size=12).map("".join))
def test_keywords_within_other_words(text):
    def mentions(words):
        return any(word in text.lower() for word in words.split("|"))

    mode = "periodic_bulk" if mentions(PERIODIC) else "unknown"
    assert mc._structure_mode({}, text) == mode
    correlation = "dftu_sensitive" if mentions(CORRELATED) else "unknown"
    assert mc._correlation_class([], "", text) == correlation
    magnetic = next((label for label, words in MAGNETIC.items() if mentions(words)), "unknown")
    assert mc._magnetic_class([], "", text, "") == magnetic
