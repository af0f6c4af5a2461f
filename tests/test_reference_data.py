"""What holds for every table: form, order, and that no entry undoes another."""

import itertools
import re
from pathlib import Path
from types import MappingProxyType

import pytest
from tavik_agent.material_reference_data import (
    common_formulas,
    compound_names,
    family_formulas,
    ions,
    written_formulas,
)
from tavik_agent.method_acronyms import METHOD_ACRONYMS

from tavik_agent import material_reference_data as data
from tavik_agent import method_acronyms

PART = re.compile(r"([A-Z][a-z]?)(\d*)")
PHRASES = {"compounds": data.FORMULA_ALIASES, "elements": data.ELEMENT_NAME_ALIASES}
GAPS = data.SEMICONDUCTOR_FORMULAS | data.INSULATOR_FORMULAS
FORMULAS = GAPS | data.DFTU_SENSITIVE_FORMULAS | {*data.FORMULA_ALIASES.values()}
MOLECULES = "H2 N2 O2 O3 CO CO2 NO NO2 N2O H2O NH3 CH4 C2H2 SO2 H2S HF HCl P4 S8"
SPECIES = [
    *(data.NONMAGNETIC_METAL_SPECIES, data.COMPLEX_MAGNETIC_SPECIES),
    *(data.phase1_simple_ferromagnet_species(), data.collinear_magmom_seed_species()),
]
# Acronyms that are element symbols or formulas when read in capitals. Each has its reason, and the
# phrases that bring the element or compound back, in the last group of the acronyms.
DELIBERATE = "IN AS I NO AT AM BE K V U PA FM PM US UP BO RE CF CM VB SCC SCO HS C2 P4 TC RF DB SG \
MT DS RG FL MC LV TS OG VS NBO"


def test_tables_cannot_be_changed():
    assert all(type(table) is MappingProxyType for table in PHRASES.values())
    sets = [data.KNOWN_ELEMENT_SYMBOLS, GAPS, data.DFTU_SENSITIVE_FORMULAS, METHOD_ACRONYMS]
    assert all(type(table) is frozenset for table in [*sets, *SPECIES])


def test_every_element_is_known_and_has_a_name():
    assert len(data.KNOWN_ELEMENT_SYMBOLS) == 118
    assert {*data.ELEMENT_NAME_ALIASES.values()} == data.KNOWN_ELEMENT_SYMBOLS
    assert frozenset().union(*SPECIES) <= data.KNOWN_ELEMENT_SYMBOLS


def test_formulas_are_runs_of_known_symbols():
    for formula in FORMULAS:
        parts = PART.findall(formula)
        assert "".join(symbol + count for symbol, count in parts) == formula
        assert {symbol for symbol, _ in parts} <= data.KNOWN_ELEMENT_SYMBOLS, formula


# Words of ordinary requests, among them lower-case spellings of formulas, and structure types that
# many compounds share. As a row, each would put its compound into requests about something else.
EVERYDAY = """
    alas as at ban bar base basis be bin boss bulk can case cause clay close coin con coo cook cop
    copies cups film gap gas glass hose i ice in is lead lime loss no nose on phase pin pins pure
    rust salt sand save scan sic sin snow so son spin steel surface this tin us use water
    anatase-type antiperovskite diamond delafossite fluorite garnet heusler kagome kesterite olivine
    perovskite pyrochlore pyrite rocksalt rutile skutterudite spinel sphalerite wurtzite zincblende
"""


@pytest.mark.parametrize("table", PHRASES.values(), ids=PHRASES)
def test_phrases_can_be_found_and_are_no_everyday_words(table):
    """A phrase is looked for in stripped, lowered text, between single blanks."""
    assert [p for p in table if p != " ".join(p.split()) or p != p.lower() or not p] == []
    assert {*EVERYDAY.split()} & table.keys() == set()


def test_no_compound_row_is_hidden():
    """A row is hidden when an earlier row with another formula matches wherever it does."""
    before, hidden = {}, []
    for phrase, formula in data.FORMULA_ALIASES.items():
        words = phrase.split(" ")
        spans = itertools.combinations(range(len(words) + 1), 2)
        inner = {" ".join(words[i:j]) for i, j in spans} & before.keys()
        hidden += [(phrase, other) for other in inner if before[other] != formula]
        before[phrase] = formula
    assert hidden == []


def test_no_form_has_two_meanings():
    """Forms of different phrases never meet; a row of a list may outrank the same row by rule."""
    first, met = {}, []
    for table, forms in compound_names.GROUPS:
        for phrase, formula in table.items():
            for form in forms(phrase):
                other, meaning = first.setdefault(form, (phrase, formula))
                met += [(form, meaning, formula)] * (meaning != formula and other != phrase)
    assert met == []


def readings(spelling):
    """All formulas that a spelling in small letters may stand for."""
    if not spelling:
        return [""]
    found = []
    for length in (1, 2):
        symbol, rest = spelling[:length].capitalize(), spelling[length:]
        if len(symbol) == length and symbol in data.KNOWN_ELEMENT_SYMBOLS:
            count = re.match(r"\d*", rest)[0]
            found += [symbol + count + behind for behind in readings(rest[len(count) :])]
    return found


def test_no_spelling_stands_for_two_formulas():
    tables = (common_formulas.COMMON_FORMULAS, written_formulas.WRITTEN_FORMULAS)
    for spelling, formula in itertools.chain.from_iterable(table.items() for table in tables):
        assert {*readings(spelling)} & FORMULAS <= {formula}, spelling


# Phrases of every rule that makes some, by their meaning.
MEANINGS = {
    "Fe2O3": "fe₂o₃|fe$_2$o$_3$|fe$_2$o$_3$,|fe_2o_3|fe$_{2}$o$_{3}$|fe<sub>2</sub>o<sub>3</sub>"
    "|fe₂o₃,|α-fe2o3|alpha-fe₂o₃|fe2o3.|(hematite)",
    "C": "(graphite)|silicon–vacancy center in diamond",
    # fractions and variables
    "La2SrMn3O9": "la0.67sr0.33mno3",  # of the list
    "LaSrMnO3": "la0.7sr0.3mno3|la0.9sr0.1mno3|(la0.9sr0.1)mno3|la$_{1-x}$sr$_x$mno$_3$",
    "InGaN": "in_xga_{1-x}n",
    "CeGdO2": "ce0.9gd0.1o1.95",
    "CsPbIBr": "cspb(i0.67br0.33)3",
    "NaFeMnO2": "na2/3[fe1/2mn1/2]o2",
    "Ti3C2": "ti₃c₂tₓ",
    "LaCaMnO3": "(la,ca)mno3",
    "LaSrCuO4": "la2-xsrxcuo4",
    "AlGaAs": "alxga1-xas",
    "BiSbTe3": "(bi0.8sb0.2)2te3",
    "LiCoO2": "li1-xcoo2|li_xcoo_2",
    "MoO": "moox",
    "YBa2Cu3O7": "yba2cu3o7-δ",
    "CeO2": "ceo2-δ",
    "Nb2C": "nb2ctx",
    # names that spell a formula out
    "LuH3": "lutetium trihydride",
    "Sb2S3": "antimony trisulfide",
    "Cr2O3": "chromium sesquioxide",
    "ZrS3": "zirconium trisulfide",
    "Ta2O5": "tantalum pentoxide",
    "ZrO": "zirconium monoxide",
    "Ce2O3": "cerium trioxide",
    "NiFe2O4": "nickel ferrite",
    "AgNbO3": "silver niobate",
    "VTi": "vanadium-titanium|vanadium–titanium",
    "Mn": "mn2|mn3+:|zns:mn2+",
    "V": "v4 cluster|v4 tetramers",
    "Eu": "eu3+|eu³⁺|eu3+-doped|yag:eu3+|eu2+/eu3+",
    "Er": "yb3+/er3+|er3+,yb3+|nayf4:yb3+,er3+|y3al5o12:er3+",
    "Fe": "fepx3 (x",
    "P": "fepx3 (x =",
    # names of elements in every spelling
    **{"Al": "aluminium|aluminum", "S": "sulfur|sulphur", "Cs": "caesium|cesium", "W": "wolfram"},
}


@pytest.mark.parametrize(("meaning", "phrases"), MEANINGS.items())
def test_phrases_that_a_rule_makes(meaning, phrases):
    table = data.FORMULA_ALIASES | data.ELEMENT_NAME_ALIASES
    assert {table.get(phrase) for phrase in phrases.split("|")} == {meaning}


def test_an_ion_that_is_dropped_comes_back_as_a_cluster():
    aliases = data.ELEMENT_NAME_ALIASES
    for cluster in map(str.lower, (*ions.IONS, *ions.FIRST_PIECES)):
        symbol = cluster[:-1].capitalize()
        assert symbol in (aliases.get(cluster), aliases.get(f"{cluster} clusters")), cluster


# The count of a version, a volume, a substitution: no element without a noun.
@pytest.mark.parametrize("word", ["v3", "v4", "v5", "u4", "w6", "y2", "cm3", "in2", "sn2"])
def test_a_symbol_with_a_count_that_means_something_else_is_no_element(word):
    assert word not in data.ELEMENT_NAME_ALIASES


def test_what_a_family_shares_is_no_formula_of_another_table():
    others = (t for t, _ in compound_names.GROUPS if t is not family_formulas.FAMILY_FORMULAS)
    known = GAPS.union(data.DFTU_SENSITIVE_FORMULAS, *(table.values() for table in others))
    assert known & {*family_formulas.FAMILY_FORMULAS.values()} == set()


# Counts that no compound has; the elements alone are read.
@pytest.mark.parametrize(
    "name",
    [
        *("iron trioxide", "cobalt trioxide", "silicon trioxide", "thorium trioxide"),
        *("indium dioxide", "iron trisulfide", "calcium disulfide", "aluminum difluoride"),
        *("nickel trichloride", "copper triiodide", "titanium trihydride", "platinum diboride"),
    ],
)
def test_counts_that_no_compound_has(name):
    assert name not in data.FORMULA_ALIASES


def test_no_formula_has_two_gap_classes():
    assert not data.SEMICONDUCTOR_FORMULAS & data.INSULATOR_FORMULAS


def test_acronyms_swallow_no_formula_but_the_deliberate_ones():
    assert all(acronym == acronym.upper() for acronym in METHOD_ACRONYMS)
    readable = {t.upper() for t in FORMULAS | {*MOLECULES.split()} | data.KNOWN_ELEMENT_SYMBOLS}
    assert readable & METHOD_ACRONYMS == {*DELIBERATE.split()}


DROPPED = "KCW SFC WCC NVP UFF FSSH OC20 OC22 LA0 LA1 BA0 GA1 LA2 MG2 TC TS FE3 TI4 VZN BSC CC3"
DROPPED += " CNTS"
# Known to chemistry, or an element or compound in another mixture of letters.
READ = "KOH HCN BN CO VN UC WS BP H2O CO2 KF YVO OH C60 COS NIO PBS CUO HF SI COSI NISI SNS INP BI"
READ += " OS SNO PT1 AU1 FE2O3 CR2 CO3 HO2 YB2 BI3 KC8 IR4 NI4 MO6 RU3 CU3 YB3"


def test_acronyms_by_rule():
    assert {*DROPPED.split()} <= METHOD_ACRONYMS
    assert {*READ.split()} & METHOD_ACRONYMS == set()


MAGNETIC_SEMICONDUCTORS = "EuO EuS EuSe EuTe MnTe CrI3 CrBr3 VI3 CrSBr CrPS4 ZnCr2S4 ZnCr2Se4 \
CdCr2S4 CdCr2Se4 HgCr2S4 HgCr2Se4 CrGeTe3 Cr2Ge2Te6 CrSiTe3 Cr2Si2Te6"
GAP_NOT_OF_CORRELATION = "CeO2 LiCoO2 MnBi2Te4 MnSb2Te4 SmS SmSe SmTe TmTe"


def test_correlated_insulators_stand_in_no_gap_table_for_a_small_gap():
    small = data.SEMICONDUCTOR_FORMULAS & data.DFTU_SENSITIVE_FORMULAS
    assert small == {*MAGNETIC_SEMICONDUCTORS.split(), *GAP_NOT_OF_CORRELATION.split()}


def test_every_table_names_its_sources():
    tables = [*Path(data.__file__).parent.glob("[!_]*.py"), Path(method_acronyms.__file__)]
    assert [t.name for t in tables if "Source" not in t.read_text(encoding="utf-8")] == []
