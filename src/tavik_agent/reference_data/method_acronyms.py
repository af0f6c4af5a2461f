"""Words in capitals that are never read as chemical formulas.

Meaning: upper-case words. A word of a request is no formula when its upper-case form is here, so an
entry covers every spelling in capitals and small letters: IN drops "IN" and "In".

Criterion: the word occurs in requests for calculations (methods, programs, notation, units,
structure symbols, sentence words), and some spelling of it could pass as a formula of at most eight
element symbols. The methods of the first group are named for completeness: in capitals most of them
hold a letter that is no element, and only a spelling such as "HSe" for HSE could pass.

An entry must not swallow a formula that people write. The few that do are in the last group, each
with the reason and with the phrases that bring the element or compound back.

Sources: the manuals and file formats of the common electronic-structure programs; P. P. Ewald and
C. Hermann, Strukturbericht 1913-1928 (1931), for the structure symbols; International Tables for
Crystallography, Volume A, for the space groups.

Left out because a formula would be lost: HF (Hf, hydrogen fluoride), SI (Si), SIC (SiC), CO (Co,
CO), NI (Ni), OS (Os), PBS (PbS), SC (Sc), TI (Ti), NP (Np), NBO (NbO), WC (WC), CN (cyanides), INS
(InS), BP (BP), HFC (HfC); HE, since helium is written more often than the sentence word;
W, Y, B, C, F, H, N, O, P and S, which stand for elements more often than for units, axes or points
of the Brillouin zone.
"""

from typing import Final

# fmt: off
METHOD_ACRONYMS: Final[frozenset[str]] = frozenset(
    {
        # Methods and functionals.
        "DFT", "TDDFT", "DFPT", "DMFT", "LDA", "LSDA", "GGA", "PBE", "PBESOL", "PBE0", "RPBE",
        "REVPBE", "SCAN", "R2SCAN", "TPSS", "BLYP", "B3LYP", "HSE", "HSE03", "HSE06", "BSE", "GW",
        "G0W0", "RPA", "MP2", "CCSD", "CASSCF", "AIMD", "NEB", "PAW", "LAPW", "FLAPW", "LCAO",
        # Self-consistency, wave functions, basis sets, convergence.
        "SCF", "NSCF", "VSCF", "CPSCF", "PWSCF", "PW", "FP", "KS", "KB", "HK", "FC", "IFC", "IFCS",
        "FCS", "SCPH", "PBC", "PBCS", "BC", "BCS", "SP", "NN", "NNN", "NC",
        # Pseudopotentials and their file formats.
        "USPP", "USP", "NCPP", "PP", "PSP", "ONCV", "ONCVPSP", "SSSP", "UPF", "PSF", "PSP8", "BHS",
        # Functionals, exchange and correlation, excited states, embedding.
        "VWN", "VWN5", "SVWN", "SVWN5", "VBH", "PW86", "PW91", "PW92", "BPW91", "B3PW91", "BP86",
        "P86", "B86", "B88", "B97", "B98", "PW6B95", "B95", "HISS", "VV10", "PSIC", "UHF", "UKS",
        "CPHF", "CPKS", "CC", "CI", "CIS", "FCI", "CIPSI", "SCS", "SOS", "PNO", "NCI", "BCP", "CP",
        "SCCS", "COBI", "ICOBI", "COOP", "ICOOP", "COHP", "ICOHP", "NICS", "OPW",
        # Spin states, spin-orbit coupling and phenomena of the solid.
        "SOC", "SOI", "SO", "SHC", "OO", "CISS", "VHS", "BIC", "SF", "ISF", "USF", "HSP",
        # Programs, input tags, force fields, simulation methods.
        "FHI", "CP2K", "PYSCF", "PHON", "PHONOPY", "PSI4", "ISPIN", "ISIF", "NSW", "NPH", "FSSH",
        "SSH", "SISSO", "SPC", "BOP", "NNP", "UFF", "PCFF", "CVFF", "PI",
        # Further abbreviations of methods, quantities and devices.
        "CSP", "CBS", "VBO", "CBO", "SBH", "ISC", "VOC", "VOCS", "PIC", "OSC", "PSI", "PNP", "NPN",
        "PIN", "CNN", "CPP", "SPS", "POISSON", "KOHN",
        # Words in capitals that stand in requests.
        "ION", "IONS", "KNOWN",
        "SPIN", "SPINS", "PHONON", "PHONONS", "PHYSICS", "BOSON", "FOCUS", "SKIP", "UNKNOWN",
        "INFO", "CONV", "ISO", "OK", "ON", "OFF", "OF", "UPON", "IS", "IF", "BY", "HOW", "NOW",
        "WHO", "WHY", "OWN", "SHOW", "SUCH", "WHICH", "YOU", "FYI", "NON",
        # Elastic constants of the crystal classes, and the parameters of an equation of state.
        "C12", "C13", "C22", "C23", "C33", "C44", "C55", "C66", "B0", "V0",
        # Structures, lattices and their symbols: lattice types, Strukturbericht designations, space
        # groups whose first piece would read as an element with a count ("P63/mmc", "I4/mmm",
        # "C2/m"). "Fm-3m" and "Pm-3m" are in the last group.
        "FCC", "BCC", "HCP", "BCO", "B1", "B2", "B3", "B4", "B8", "B19", "B20", "B32", "C1", "C11",
        "C14", "C15", "C16", "C36", "C40", "P2", "P21", "P213", "P212121", "P3", "P31", "P32",
        "P3121", "P3221", "P42", "P41212", "P43212", "P6", "P63", "P61", "P62", "P6222", "P6422",
        "C222", "C2221", "I4", "I41", "I213", "I23", "F222", "I222",
        # Roman numerals: groups (III-V, II-VI, I-III-VI), oxidation states (Fe(III), Ce(IV)),
        # phases. V2 is a piece of II-IV-V2.
        "II", "III", "IV", "VI", "VII", "VIII", "V2",
        # Experiments, computing, places of publication, devices.
        "UPS", "UV", "VUV", "UHV", "HV", "FIB", "ICP", "HPC", "CPU", "CPUS", "IO", "CIF", "CSV",
        "PC", "PV", "OPV", "PSC", "PSCS", "SOFC", "SOFCS", "OCV", "SSB", "SIB", "PCCP", "CV",
        "OCP", "CPC", "FS", "PS", "IP", "CB", "BS",
        # Abbreviations of materials that spell other elements; a row of the compound names gives
        # their composition where it is settled. "NV" and "SiV" are colour centres, "COF" and "HOIP"
        # classes.
        "YBCO", "BSCCO", "BFO", "KNN", "BBO", "CBN", "HBN", "NV", "SIV", "COF", "HOIP", "NCS",
        # "NaN", not a number; "KPa", the misspelt kilopascal.
        "NAN", "KPA",
        # Deliberate exceptions: entries that equal an element symbol or a formula.
        #
        # Sentence words: "In this work", "As a test", "I want to", "No magnetism", "At 300 K", "Am
        # I right", "Be careful". Names and phrases such as "in-doped", "as-rich" and "of be" bring
        # the elements back; nitric oxide is found by name.
        "IN", "AS", "I", "NO", "AT", "AM", "BE",
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
        # Valence band; vanadium monoboride is found by name.
        "VB",
        # Self-consistent charges; scandium carbide is found by name.
        "SCC",
        # Spin crossover; scandium oxide without counts is only ever built from a list of elements.
        "SCO",
        # High spin; hassium has no chemistry of solids.
        "HS",
        # Space groups C2/m, C2/c and P4/mmm, P4/nmm; "c2 dimer" and "p4 molecule" are phrases.
        "C2", "P4",
    }
)
# fmt: on
