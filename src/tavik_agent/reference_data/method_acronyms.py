"""Words in capitals that are never read as chemical formulas.

Meaning: upper-case words. A word of a request is no formula when its upper-case form is here, so an
entry covers every spelling in capitals and small letters: IN drops "IN" and "In".

Criterion, for what the rules make:
- a run of two to four capitals that is a formula only as a row of one-letter symbols (SFC, KCW,
  WCC) is an abbreviation. It is no entry where it is a known compound (KOH, HCN, BN), where another
  mixture of large and small letters spells an element or a formula of the tables (COS is CoS, NIO
  is NiO), and where two of its letters are the symbol of an element that occurs in compounds;
- three such letters that spell a non-metal before a metal (BSC, FSI, ICU) are one as well: formulas
  begin with the metal;
- in the plural of such a run the last capital and the s would be an element that no compound ends
  with (CNTs, FFTs, IEs, PCs);
- such a run with a number from 17 to 29 behind it is a data set named by its year (OC20), a letter
  that stands twice before a number a method (CC3, VV10);
- a V before an element with which vanadium forms no such compound is a vacancy (VZn, VSi);
- an ion in a usual charge (Fe3+, Ti4+) is no cluster; the phrases of ions.py bring its element
  back, and that of a cluster with this spelling;
- a symbol with the count 0, or 1 before a variable, is the first piece of a fraction ("La0.7Sr0.3",
  "Li1-xCoO2"). As a formula it would make the material a metal. So would a symbol with 2 or 3
  before a variable that is no molecule ("La2-xSrxCuO4"), and two symbols with the count 0 of the
  second ("BaCe0.9Y0.1O3").

Criterion, for the words of the list: the word occurs in requests for calculations (methods,
programs, notation, units, structure symbols, sentence words), some spelling of it could pass as a
formula of at most eight element symbols, and the rules do not make it. An entry must not hide a
formula that people write. The few that do are in the last group, each with the reason and with the
phrases that bring the element or compound back.

Sources: the manuals and file formats of the common electronic-structure programs; P. P. Ewald and
C. Hermann, Strukturbericht 1913-1928 (1931), for the structure symbols; International Tables for
Crystallography, Volume A, for the space groups.

Left out because a formula would be lost: HF (Hf, hydrogen fluoride), SI (Si), SIC (SiC), CO (Co,
CO), NI (Ni), OS (Os), PBS (PbS), SC (Sc), TI (Ti), NP (Np), WC (WC), CN (cyanides), INS
(InS), BP (BP), HFC (HfC); HE, since helium is written more often than the sentence word;
W, Y, B, C, F, H, N, O, P and S, which stand for elements more often than for units, axes or points
of the Brillouin zone.
"""

from itertools import chain, filterfalse, product
from typing import Final

from tavik_agent.material_reference_data import (
    DFTU_SENSITIVE_FORMULAS,
    INSULATOR_FORMULAS,
    KNOWN_ELEMENT_SYMBOLS,
    SEMICONDUCTOR_FORMULAS,
)
from tavik_agent.material_reference_data.compound_names import GROUPS
from tavik_agent.material_reference_data.ions import FIRST_PIECES, IONS

# Runs of one-letter symbols that are molecules, radicals, groups, or compounds without counts.
# fmt: off
_CHEMISTRY: Final = frozenset(
    {
        "HCN", "HNC", "HCP", "HCO", "CHO", "COH", "HOCO", "OCHO", "HCOH", "CHOH", "OH", "OOH",
        "HOO", "HOOH", "NH", "NNH", "HNN", "HNNH", "HNO", "NOH", "HNOH", "NNO", "ONO", "HONO",
        "CH", "CCH", "HCCH", "CF", "CN", "NCO", "OCN", "CNO", "HNCO", "HOCN", "FCN", "ICN", "CHF",
        "CNH", "OCCO", "OCS", "SCN", "KSCN", "SO", "SH", "HS", "SF", "SOF", "PO", "PN",
        "HPO", "NF", "NNF", "OF", "HOF", "FOOF", "BH", "BF", "BO", "BOH", "HBO", "HBNH", "BNH",
        "IF", "HI", "HOI", "KF", "KI", "KH", "KO", "KS", "KOH", "KCN", "KNO", "KIO", "KHF",
        "KBF", "KBH", "KPF", "KPO", "KVF", "KVO", "KWO", "BN", "BP", "BCN", "BNC", "BNO", "BC",
        "BPO", "FPO", "VB", "VC", "VN", "VO", "VP", "VF", "VH", "VCN", "VNC", "VOF", "VPO",
        "WB", "WC", "WN", "WO", "WP", "WS", "WCN", "WSN", "WOS", "UB", "UC", "UN", "UO", "UF",
        "UH", "UCN", "UNC", "UCO", "UOF", "UOS", "YH", "YN", "YP", "YS", "YO", "YF", "YC", "YOF",
        "YOI", "YVO", "YPO", "YHO", "PCN", "CI",
    }
)
# fmt: on
_ONE_LETTER: Final = "BCFHIKNOPSUVWY"
# Two-letter symbols of elements that no compound in a calculation holds.
_WITHOUT_CHEMISTRY: Final = frozenset({"Bh", "Bk", "Cf", "Cn", "Hs", "Nh", "No", "Np", "Po"})
_PAIRS: Final = frozenset(s.upper() for s in KNOWN_ELEMENT_SYMBOLS - _WITHOUT_CHEMISTRY)
_OF_TABLES: Final = KNOWN_ELEMENT_SYMBOLS.union(
    SEMICONDUCTOR_FORMULAS,
    INSULATOR_FORMULAS,
    DFTU_SENSITIVE_FORMULAS,
    *(table.values() for table, _ in GROUPS),
)
_SPELT: Final = _CHEMISTRY.union(f.upper() for f in _OF_TABLES if len(f) < 5)


def _longer(runs: list[str]) -> list[str]:
    """The runs with one letter more, where the last two letters are no symbol."""
    next_to = {a: [b for b in _ONE_LETTER if a + b not in _PAIRS] for a in _ONE_LETTER}
    return [run + letter for run in runs for letter in next_to[run[-1]]]


# Runs of two or three capitals that spell no compound are abbreviations.
_TWO: Final = _longer([*_ONE_LETTER])
_THREE: Final = _longer(_TWO)
_NON_METALS: Final = "BCFHINOPS"
# CO and HO are carbon monoxide and hydroxyl in the formulas of molecules.
_METALS: Final = sorted(p for p in _PAIRS - {"CO", "HO"} if {*p} <= {*_ONE_LETTER})
# A non-metal before a metal names no compound: formulas begin with the metal (BSC, FSI).
_ANION_FIRST: Final = [
    anion + metal
    for anion, metal in product(_NON_METALS, _METALS)
    if anion + metal[0] not in _PAIRS
]
# Two-letter symbols in s that no compound ends with.
_PLURALS: Final = [
    run + end
    for run, end in chain(
        product((*_ONE_LETTER, *_TWO), ("CS", "DS", "ES", "HS", "OS", "TS")),
        product(_THREE, ("TS",)),
    )
    if run[-1] + end[0] not in _PAIRS
]
# A letter twice and a number (CC3, MM3).
_TWICE: Final = [f"{letter}{letter}{number}" for letter in _ONE_LETTER for number in range(2, 10)]
# Data sets named by their year.
_DATA_SETS: Final = [f"{run}{year}" for run in _TWO for year in range(17, 30)]

# Vacancies, written with a V before an element with which vanadium forms no such compound (VZn).
_VACANCIES: Final = [
    "V" + symbol
    for symbol in (
        "LI NA RB CS MG CA SR BA LA HF ZR ZN CD HG CU AG AL GA TL SI GE SN PB BI CL BR".split()
    )
]
# Ions (Fe3+, Ti4+) are no clusters; ions.py brings their elements back, and those of clusters.
_IONS: Final = [ion.upper() for ion in IONS]
# Elements whose single atoms are written with a 1 ("Pt1/MgO").
_SINGLE_ATOMS: Final = frozenset("Pt Pd Au Ag Rh Ir Ru Os Cu Fe Co Ni".split())
# Elements of mixed crystals, whose first piece may hold two symbols ("BaCe0.9Y0.1O3").
_IN_MIXED_CRYSTALS: Final = (
    "LI NA K CS MG CA SR BA Y LA CE PR ND SM GD TI ZR HF V NB TA CR MO W MN RE FE RU CO NI PD PT "
    "CU AG ZN CD HG AL GA IN TL SI GE SN PB AS SB BI S SE TE N P"
).split()
# First pieces of fractions and of mixed crystals ("La0.7Sr0.3", "Li1-xCoO2").
_PIECES: Final = [
    *(f"{symbol}0".upper() for symbol in KNOWN_ELEMENT_SYMBOLS),
    *(f"{symbol}1".upper() for symbol in KNOWN_ELEMENT_SYMBOLS - _SINGLE_ATOMS),
    *map(str.upper, FIRST_PIECES),
    *(f"{one}{two}0" for one, two in product(_IN_MIXED_CRYSTALS, repeat=2)),
]

# fmt: off
_WORDS: Final = frozenset(
    {
        # Methods and functionals.
        "DFT", "TDDFT", "DFPT", "DMFT", "LDA", "LSDA", "GGA", "PBE", "PBESOL", "PBE0", "RPBE",
        "REVPBE", "SCAN", "R2SCAN", "TPSS", "BLYP", "B3LYP", "HSE", "HSE03", "HSE06", "BSE", "GW",
        "G0W0", "RPA", "MP2", "CCSD", "CASSCF", "AIMD", "NEB", "PAW", "LAPW", "FLAPW", "LCAO",
        # Self-consistency, wave functions, basis sets, convergence.
        "SCF", "NSCF", "VSCF", "CPSCF", "PWSCF", "KS", "IFCS",
        "FCS", "SCPH", "PBC", "PBCS", "BC", "BCS",
        # Pseudopotentials and their file formats.
        "ONCVPSP", "PSP8",
        # Functionals, exchange and correlation, excited states, embedding.
        "VWN5", "SVWN5", "PW86", "PW91", "PW92", "BPW91", "B3PW91", "BP86",
        "P86", "B86", "B88", "B97", "B98", "PW6B95", "B95", "VV10", "PSIC", "UHF",
        "CPHF", "CUHF", "SCPC", "FHI98PP", "HFCC", "HFCCS", "CI", "CIPSI", "SCS", "SOS",
        "SCCS", "COBI", "ICOBI", "COOP", "ICOOP", "COHP", "ICOHP", "NICS",
        # Spin states, spin-orbit coupling and phenomena of the solid.
        "SO", "BIC", "SF",
        # Programs, input tags, force fields, simulation methods.
        "CP2K", "PYSCF", "PHON", "PHONOPY", "PSI4", "ISPIN", "ISIF",
        "SISSO", "NSPIN", "NIONS", "IONIC", "NVHPC", "HIPCC", "NBOS", "SWCNTS", "FP16",
        "FP32", "FP64", "BF16", "SN2",
        # Further abbreviations of methods, quantities and devices.
        "CSP", "SBH", "ISC", "VOCS", "OSC", "PSI", "NPN",
        "PIN", "POISSON",
        # Words in capitals that stand in requests.
        "KNOWN",
        "SPIN", "SPINS", "PHONON", "PHONONS", "PHYSICS", "BOSON", "FOCUS", "UNKNOWN",
        "INFO", "CONV", "OF", "IF", "HOW",
        "WHO", "SHOW", "WHICH",
        # Elastic constants of the crystal classes, and the parameters of an equation of state.
        "C12", "C13", "C22", "C23", "C33", "C44", "C55", "C66", "B0", "V0",
        # Structures, lattices and their symbols: lattice types, Strukturbericht designations, space
        # groups whose first piece would read as an element with a count ("P63/mmc", "I4/mmm",
        # "C2/m"). "Fm-3m" and "Pm-3m" are in the last group.
        "HCP", "BCO", "B1", "B2", "B3", "B4", "B8", "B19", "B20", "B32", "C1", "C11",
        "C14", "C15", "C16", "C36", "C40", "P2", "P21", "P213", "P212121", "P3", "P31", "P32",
        "P3121", "P3221", "P42", "P41212", "P43212", "P6", "P63", "P61", "P62", "P6222", "P6422",
        "C222", "C2221", "I4", "I41", "I213", "I23", "F222", "I222",
        # Roman numerals: groups (III-V, II-VI, I-III-VI), oxidation states (Fe(III), Ce(IV)),
        # phases. V2 is a piece of II-IV-V2.
        "V2",
        # Experiments, computing, places of publication, devices.
        "CPU", "CPUS", "CSV",
        "PSC", "PSCS", "SSES", "SOFCS", "SSB", "SIB",
        # Abbreviations of materials that spell other elements; a row of the compound names gives
        # their composition where it is settled. "SiV" and its like are colour centres, "COF" and
        # "HOIP" classes.
        "YBCO", "BSCCO", "BSCF", "PBSCF", "SIV", "GEV", "SNV", "PBV", "COF", "HOIP", "NCS",
        # "NaN", not a number; "KPa", the misspelt kilopascal.
        "NAN", "KPA",
        # Benchmark sets and processors.
        "S22", "S66", "W4", "W1", "BH76", "FH51", "V100", "H100", "P100", "K80", "B200", "N12",
        # Institutes and facilities that hold the symbol of an element.
        "OSU", "UCSB", "UCSC", "USC", "ISIS", "CSNS", "CSCS", "CSC", "NCSU", "P450",
        # Words in capitals of licences, mails and tables.
        "INC", "INF", "CC0", "COPY", "POP3", "NIV", "CSS", "VCS", "PUSH", "CON",
        "BISON", "SOCKS", "CUPS", "VISION", "FUSION", "FISSION", "UNION", "BUNCH", "WIN32",
        # Deliberate exceptions: entries that equal an element symbol or a formula.
        #
        # Sentence words: "In this work", "As a test", "I want to", "No magnetism", "At 300 K", "Am
        # I right", "Be careful". Names and phrases such as "in-doped", "as-rich" and "of be" bring
        # the elements back; nitric oxide is found by name.
        "IN", "AS", "I", "NO", "AT", "AM", "BE",
        # The critical temperature, also in "high-Tc"; "hcp tc", "tc-doped", "tc(0001)" and their
        # like bring technetium back.
        "TC",
        # "Re-relax", "Re-run"; "of re" and its like bring rhenium back.
        "RE",
        # "Cf. Fig. 2" and the space group Cm; californium, curium and graphite fluoride have names.
        "CF", "CM",
        # Notation: kelvin and the point K, volt and group V, Hubbard U, pascal and the space group
        # Pa-3. "bcc k", "bulk v", "alpha-u" and their like bring the metals back.
        "K", "V", "U", "PA",
        # Space groups Fm-3m and Pm-3m; fermium and promethium are found by name.
        "FM", "PM",
        # Ultrasoft pseudopotentials and the country; uranium monosulfide is found by name.
        "US",
        # Spin up; uranium monophosphide is found by name.
        "UP",
        # Born-Oppenheimer; boron oxide without counts is only ever built from a list of elements.
        "BO",
        # Coefficients of dispersion; clusters of carbon have names.
        "C6", "C8",
        # Natural bond orbitals; "rocksalt nbo" and "bulk nbo" bring niobium monoxide back.
        "NBO",
        # Valence band; "PBE VS LDA". Vanadium monoboride and monosulfide are found by name.
        "VB", "VS",
        # Self-consistent charges; scandium carbide is found by name.
        "SCC",
        # Spin crossover; scandium oxide without counts is only ever built from a list of elements.
        "SCO",
        # Elements without a chemistry of solids: high spin and Hs, Monte Carlo and Mc, "TSs" and
        # Ts, databases and Db.
        "RF", "DB", "SG", "HS", "MT", "DS", "RG", "FL", "MC", "LV", "TS", "OG",
        # Space groups C2/m, C2/c and P4/mmm, P4/nmm; "c2 dimer" and "p4 molecule" are phrases.
        "C2", "P4",
    }
)
# fmt: on


# Runs of two to four capitals that spell no compound are abbreviations.
_RUNS: Final = filterfalse(
    _SPELT.__contains__, chain(_TWO, _THREE, _longer(_THREE), _ANION_FIRST, _PLURALS)
)
METHOD_ACRONYMS: Final[frozenset[str]] = frozenset(
    chain(_RUNS, _WORDS, _DATA_SETS, _TWICE, _PIECES, _IONS, _VACANCIES)
)
