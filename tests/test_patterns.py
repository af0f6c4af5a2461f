"""The scanners against the patterns and the containment tests that define them, on chosen and on
made-up text."""

import functools
import re
import sys

import pytest
from hypothesis import example, given
from hypothesis import strategies as st
from reliability import copies

from tavik_agent import material_characterization as mc

# Word characters that are no ASCII letters, characters that only look like word characters, digits
# of several scripts, white space and what resembles it, and characters that lower unusually.
NEIGHBOURS = (
    "éªß\u017fİ\u212a\u03a3ǅ\uff26\u4e2d\U0001d400_\u0301\u200d\u200b\u2019\ud800\udfff\0.,(+"
    "029\u0663\u096f\uff12\U0001d7d8²½\u2163① \t\n\r\x0b\x1c\x1f\x85\xa0\u2003\u3000\u2028\u180e"
    "-\u2010\u2013"
)
ANY = st.characters(exclude_categories=())


def texts(pieces):
    """Text of the pieces, their neighbours and, now and then, any character at all."""
    piece = st.sampled_from(pieces.split("|"))
    return st.lists(piece | piece | st.sampled_from(NEIGHBOURS) | ANY, max_size=14).map("".join)


def on(chosen, made_up):
    """Runs a test on chosen texts, with bars between them, and on made-up ones."""

    def decorate(test):
        for text in chosen.split("|"):
            test = example(text)(test)
        return given(made_up)(test)

    return decorate


class Written:
    def __init__(self, text, empty=False):
        self.text, self.empty = text, empty

    def __str__(self):
        return self.text

    def __bool__(self):
        return not self.empty


ELEMENTS = "Fe|O|H|Xy|In|DFT|HSe|Co|CO|E|e|x|2|3|10| |-"


def parts_by_definition(module, token):
    parts = module._FORMULA_PART_RE.findall(token)
    if "".join(symbol + digits for symbol, digits in parts) != token:
        return []
    if not all(symbol in module.KNOWN_ELEMENT_SYMBOLS for symbol, _ in parts):
        return []
    return [(symbol, int(digits) if digits else 1) for symbol, digits in parts]


FORMULAS = "The Fe2O3-based MoS2/WS2 (NiO)|Ba0.5Sr0.5TiO3|In As I He No Be|Fe\u0662O|HHHHHHHHH NiO"
FORMULAS += "|HHHHHHHH|H1H1H1H1H1H1H1H1H1 O|DFT+U on NiO; HSE HSe Dft SCF scf|"
# Glued to a word character, and next to what is none.
FORMULAS += "|1Fe2O3 xFe2O3 Fe2O3s Fe_2 _Fe FeÉ ÉFe Fe² Fe½ ªFe \u0662Fe"
FORMULAS += "|\0NiO\0 \ud800CO\udfff NaCl\u0301 \u2019H2O\u2019"


# With the module's own elements and acronyms, but no phrases.
OWN = copies.fresh()
OWN.FORMULA_ALIASES = OWN.ELEMENT_NAME_ALIASES = {}


@pytest.mark.parametrize("module", [mc, OWN], ids=["rebound", "own"])
@on(FORMULAS, texts(ELEMENTS))
def test_formulas_of_a_text(module, text):
    tokens = module._FORMULA_TOKEN_RE.findall(text)
    candidates = [token for token in tokens if token.upper() not in module._NON_FORMULA_TOKENS]
    accepted = {token: parts_by_definition(module, token) for token in candidates}
    symbols = [symbol for parts in accepted.values() for symbol, _ in parts]
    assert module._species_from_text(text) == list(dict.fromkeys(symbols))
    assert module._formula_hint(text, []) == next((t for t, parts in accepted.items() if parts), "")
    seen = []
    with pytest.MonkeyPatch.context() as patch:
        patch.setattr(module, "_formula_parts", lambda token: seen.append(token) or [])
        module._species_from_text(text)
        module._formula_hint(text, [])
    assert seen == candidates * 2


@pytest.mark.parametrize(
    ("text", "symbols"),
    [(Written("NiO"), ["Ni", "O"]), (Written("NiO", empty=True), []), (["Si"], ["Si"])],
)
def test_text_form_of_what_is_no_string(text, symbols):
    assert mc._species_from_text(text) == symbols
    assert mc._formula_hint(text, []) == "".join(symbols)
    in_parts = [] if isinstance(text, list) else [(symbol, 1) for symbol in symbols]
    assert mc._formula_parts(text) == in_parts  # a list is written with its brackets


TOKENS = (
    "Fe2O3|CO|Co|CH3CH3|Fe0O02|HHHHHHHHHHH2|Fe\u0662O\u0969|H1\u0662\uff13\U0001d7dc|fe2o3|FeO3x"
)
TOKENS += "|Fe-O|Fe2O3 | Fe|Ba0.5|2|Fe_2|FeXy|Xy2|Cs|FE|Fe²|Fe½|\uff26eO|Fe\u0301|Fé|Fe\0|Fe\ud800|"


@on(TOKENS, texts(ELEMENTS) | st.from_regex(r"([A-Z][a-z]?\d*){1,12}", fullmatch=True))
def test_parts_of_a_token(token):
    assert mc._formula_parts(token) == parts_by_definition(mc, token)


@pytest.mark.parametrize("nine", ["9", "\u0669", "\U0001d7ff"], ids=["ascii", "arabic", "astral"])
@pytest.mark.parametrize("length", [18, 19, 20, 700, 4300, 4301, 20_000])
def test_counts_are_exact_at_any_length(request, nine, length):
    restore = functools.partial(sys.set_int_max_str_digits, sys.get_int_max_str_digits())
    request.addfinalizer(restore)
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


def test_acronyms_are_read_from_the_bound_set(monkeypatch):
    monkeypatch.setattr(mc, "_NON_FORMULA_TOKENS", ["NIO"])
    assert mc._species_from_text("NiO HSe") == ["H", "Se"]


# Marks, joiners and surrogates are no word characters; a later occurrence counts too.
SAMPLES = (
    "the SAMPLE under a tip|tip-sample|tip\ud800sample\0|tip\u0301 sample\u200d|sample T\u0130P"
)
SAMPLES += "|samples at the tip of the sample|samples tips|subsample tip|sample_tip|sampleé tip"
SAMPLES += "|sample ²tip|sample \u0663tip"


@on(SAMPLES, texts("sample|tip|Sample|TIP|s| |-"))
def test_sample_and_tip(text):
    both = all(re.search(pattern, text.lower()) for pattern in (r"\bsample\b", r"\btip\b"))
    label = "stm_sample_tip" if both else "unknown"
    classify = functools.partial(mc._structure_archetype, structure_mode="")
    assert classify(combined_text="", query_text=text) == label
    assert classify(combined_text="", query_intent={"structure_description": text}) == label
    assert classify(combined_text=text) == label


METALS = "METALLIC|half-metal|\ud800metal\0|nonmetallic|metals|metalloid|metal_|métal|metalé|metal²"


@on(METALS, texts("metal|metallic|Metal|METALLIC|s|ic"))
def test_metal(text):
    found = mc.classify_system_class([], explicit_text=text)
    assert (found == "metal") == bool(re.search(r"\bmetallic\b|\bmetal\b", text.lower()))


UNITS = (
    "in eV.|EV|\0ev\ud800|Ha/eV|ev\u0301|eV-eV2|Hartree or eV|electrons, electron volts|\u0663ev"
)
UNITS += (
    "|Electron-Volt|electronvolt|electron\u3000volts|electron\nvolt|electron\x1cvolt|every energy"
)
UNITS += (
    "|1eV|meV|µeV|eV²|eV_|electron  volt|electron\u2013volt|volts|electron voltss|electron volté"
)
UNITS += (
    "|electron\u200bvolt|xelectron volt|mHa to Ha|HARTREE|hartrees|(ha)|atomic unity atomic units"
)
UNITS += "|atomic\x1funit|Atomic \t\u2028\x85unit|atomicunits|atomic-units|atomic\u200bunit|haha|"
# The closing boundary asks for a word character right behind the last period.
UNITS += (
    "|atomic unitse|subatomic units|hartreeé|a.u.|in a.u. or|a.u.,|ba.u.x|a.u|a.u.\u0301x|a.u.x"
)
UNITS += "|(a.u.é|a.u.2|a.u._|a.u. a.u.\u0663"


@on(
    UNITS,
    texts("eV|EV|electron|Electron|volt|volts|s|-| ")
    | texts("Ha|hartree|Hartrees|atomic|Atomic|unit|Units|a.u.|A.U|s| "),
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
WORDS = "|".join([PERIODIC, CORRELATED, *MAGNETIC.values()])
WORD = st.sampled_from(WORDS.split("|"))
CUT = st.builds(lambda word, a, b: word[a:b], WORD, st.integers(0, 3), st.integers(2, 15))
LOOKALIKES = (
    "xBULKy|subSurface|bul\u212a|\ud800\0slab|hc p, f cc, bul, urface|uncorrelatedness|dft +u, lda"
)


@on(
    f"{WORDS}|{WORDS.upper()}|{LOOKALIKES}",
    st.lists(WORD | CUT | CUT | st.sampled_from(NEIGHBOURS), max_size=12).map("".join),
)
def test_keywords_within_other_words(text):
    def mentions(words):
        return any(word in text.lower() for word in words.split("|"))

    mode = "periodic_bulk" if mentions(PERIODIC) else "unknown"
    assert mc._structure_mode({}, text) == mode
    correlation = "dftu_sensitive" if mentions(CORRELATED) else "unknown"
    assert mc._correlation_class([], "", text) == correlation
    magnetic = next((label for label, words in MAGNETIC.items() if mentions(words)), "unknown")
    assert mc._magnetic_class([], "", text, "") == magnetic
