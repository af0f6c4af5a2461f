"""Compounds that common practice treats with a Hubbard correction (DFT+U).

Sources: V. I. Anisimov, J. Zaanen and O. K. Andersen, Phys. Rev. B 44, 943 (1991); S. L. Dudarev et
al., Phys. Rev. B 57, 1505 (1998); L. Wang, T. Maxisch and G. Ceder, Phys. Rev. B 73, 195107 (2006),
oxides of V to Ni; A. Jain et al., Phys. Rev. B 84, 045115 (2011), which elements a large data set
treats with +U in oxides and fluorides; B. Himmetoglu et al., Int. J. Quantum Chem. 114, 14 (2014),
review; M. Imada, A. Fujimori and Y. Tokura, Rev. Mod. Phys. 70, 1039 (1998), which of them are
insulators; K. S. Burch, D. Mandrus and J.-G. Park, Nature 563, 47 (2018), layered magnets; K. T.
Moore and G. van der Laan, Rev. Mod. Phys. 81, 235 (2009), actinides.
"""

from collections.abc import Sequence
from typing import Final

# Meaning: formulas that +U practice covers.
# Criterion: an open d or f shell, +U standard in the literature, and an insulating or
# semiconducting ground state. The last matters: a formula of this table that is in no gap table is
# classed as an insulator. So metals are kept out even where +U is used (CrO2, SrVO3, LaNiO3,
# SrRuO3, YBa2Cu3O7, Fe3GeTe2, UN), and so are compounds that are metals or insulators according to
# phase and temperature (VO2, V2O3, MnO2, Fe3O4, Ti4O7). The oxides among them are recognised by
# their elements, through is_transition_metal_oxide.
# Left out: d0 and d10 compounds (TiO2, V2O5, ZnO, Cu2O, CuAlO2), oxides of the noble metals, and 4f
# metals and intermetallic compounds.
# fmt: off
DFTU_SENSITIVE_FORMULAS: Final[frozenset[str]] = frozenset(
    {
        # Oxides of one 3d metal. VO2, V2O3, MnO2, CrO2 and Fe3O4 are metals, half-metals or
        # insulators according to phase and temperature: left out, see the head.
        "MnO", "FeO", "CoO", "NiO", "CuO", "Mn2O3", "Mn3O4", "Fe2O3", "Co3O4", "Cr2O3", "Ti2O3",
        # Hydroxides and oxyhydroxides, in the spellings that people write.
        "MnOOH", "FeOOH", "CoOOH", "NiOOH", "MnO2H", "FeO2H", "FeHO2", "CoO2H", "CoHO2", "NiO2H",
        "NiHO2", "MnO2H2", "FeO2H2", "CoO2H2", "NiO2H2", "CuO2H2", "FeO3H3",
        # Spinels.
        "MgFe2O4", "MnFe2O4", "CoFe2O4", "NiFe2O4", "CuFe2O4", "ZnFe2O4", "CdFe2O4", "CaFe2O4",
        "FeAl2O4", "MnAl2O4", "CoAl2O4", "NiAl2O4", "FeCr2O4", "CoCr2O4", "MnCr2O4", "NiCr2O4",
        "CuCr2O4", "ZnCr2O4", "MgCr2O4", "CdCr2O4", "HgCr2O4", "ZnCo2O4", "MnCo2O4", "FeCo2O4",
        "CoMn2O4", "ZnMn2O4", "MgMn2O4", "LiMn2O4", "MnV2O4", "FeV2O4", "MgV2O4", "ZnV2O4",
        "CdV2O4", "Fe2TiO4", "Mn2TiO4", "LiCoVO4", "LiNiVO4", "Li2NiMn3O8",
        # Silicates and garnets, hexaferrites, iron garnets.
        "Fe2SiO4", "Mn2SiO4", "Co2SiO4", "Ni2SiO4", "FeSiO3", "Fe3Al2Si3O12", "Mn3Al2Si3O12",
        "Ca3Fe2Si3O12", "Ca3Cr2Si3O12", "Y3Fe5O12", "Gd3Fe5O12", "Tb3Fe5O12", "Tm3Fe5O12",
        "Lu3Fe5O12", "BaFe12O19", "SrFe12O19", "PbFe12O19", "GaFeO3", "AlFeO3", "Fe2TiO5",
        # Perovskites with Ti3+, V3+ and V4+. SrVO3 and CaVO3 are metals.
        "LaTiO3", "YTiO3", "GdTiO3", "SmTiO3", "EuTiO3", "LaVO3", "YVO3", "CeVO3", "PrVO3",
        "NdVO3", "PbVO3",
        # Chromites, manganites, ferrites, cobaltites, and the nickelates whose ground state is
        # insulating. LaNiO3, SrCrO3, SrFeO3, SrCoO3 and LaCuO3 are metals.
        "LaCrO3", "YCrO3", "NdCrO3", "GdCrO3", "BiCrO3", "LaMnO3", "YMnO3", "PrMnO3", "NdMnO3",
        "SmMnO3", "EuMnO3", "GdMnO3", "TbMnO3", "DyMnO3", "HoMnO3", "ErMnO3", "LuMnO3", "ScMnO3",
        "InMnO3", "BiMnO3", "CaMnO3", "SrMnO3", "BaMnO3", "CaMn7O12", "CaMn2O4", "LaFeO3", "YFeO3",
        "PrFeO3", "NdFeO3", "SmFeO3", "EuFeO3", "GdFeO3", "TbFeO3", "DyFeO3", "HoFeO3", "ErFeO3",
        "LuFeO3", "BiFeO3", "Sr2Fe2O5", "Ca2Fe2O5", "LuFe2O4", "LaCoO3", "PrCoO3",
        "NdCoO3", "GdCoO3", "YCoO3", "BiCoO3", "Ca3Co2O6", "Ca3CoMnO6",
        "SmNiO3", "EuNiO3", "GdNiO3", "DyNiO3", "HoNiO3", "YNiO3", "LuNiO3", "BiNiO3", "La2NiO4",
        "Pr2NiO4", "Nd2NiO4", "LaSrMnO4", "La2NiMnO6", "La2CoMnO6", "La2FeCrO6", "Bi2NiMnO6",
        "Bi2FeCrO6", "Sr2CrOsO6", "KBiFe2O5",
        # Cuprates. The metals (YBa2Cu3O7 and the doped compounds) are recognised by their elements.
        "La2CuO4", "Pr2CuO4", "Nd2CuO4", "Sm2CuO4", "CaCuO2", "SrCuO2", "Sr2CuO3", "Ca2CuO3",
        "Sr2CuO2Cl2", "Ca2CuO2Cl2", "YBa2Cu3O6", "CuGeO3", "CuBi2O4", "Bi2CuO4", "CuWO4", "CuB2O4",
        "Cu2OSeO3", "CuSb2O6", "Cu3TeO6", "BaCuSi2O6", "SrCu2B2O6", "LiCu2O2", "LiCuVO4",
        "CaCu3Ti4O12", "ZnCu3O6H6Cl2", "CuSO4",
        # Delafossites and layered alkali oxides; cathode materials.
        "CuCrO2", "CuFeO2", "CuMnO2", "CuCoO2", "AgCrO2", "AgFeO2", "LiVO2", "LiCrO2", "LiMnO2",
        "LiFeO2", "LiCoO2", "LiNiO2", "NaVO2", "NaCrO2", "NaMnO2", "NaFeO2", "NaCoO2", "NaNiO2",
        "KCrO2", "Li2MnO3", "Li2FeO3", "Li3NiMnCoO6", "Li10Ni8MnCoO20", "Li10Ni6Mn2Co2O20",
        "Li10Ni5Mn3Co2O20", "LiFePO4", "LiMnPO4", "LiCoPO4", "LiNiPO4", "NaFePO4", "NaMnPO4",
        "FePO4", "MnPO4", "CoPO4", "Li3V2P3O12", "Na3V2P3O12", "LiVPO4F", "NaVPO4F", "Na3V2P2O8F3",
        "LiVOPO4", "LiFeSO4F", "LiFePO4F", "Na2FePO4F", "Li2FeSiO4", "Li2MnSiO4", "Li2CoSiO4",
        "LiFeBO3", "LiMnBO3", "Li2FeP2O7", "Na2FeP2O7",
        # Titanates, niobates, tungstates, vanadates, tellurates, carbonates, sulfates of open-shell
        # cations; quasi-two-dimensional and frustrated magnets.
        "MnTiO3", "FeTiO3", "CoTiO3", "NiTiO3", "MnWO4", "FeWO4", "CoWO4", "NiWO4", "FeVO4",
        "MnNb2O6", "FeNb2O6", "CoNb2O6", "NiNb2O6", "FeTa2O6", "Mn4Nb2O9", "Fe4Nb2O9", "Co4Nb2O9",
        "Ni3V2O8", "Co3V2O8", "BaCo2V2O8", "BaNi2V2O8", "BaCo2As2O8", "Na2Co2TeO6", "Na3Co2SbO6",
        "Ni3TeO6", "Cr2TeO6", "Fe2TeO6", "Ba3CoSb2O9", "MnGeO3", "FeCO3", "MnCO3", "CoCO3",
        "NiCO3", "MnSO4", "FeSO4", "CoSO4", "NiSO4",
        # Oxides of 4d and 5d metals for which +U (or +U with spin-orbit coupling) is standard, all
        # insulating. SrRuO3, Sr2RuO4 and the noble-metal dioxides are metals.
        "Ca2RuO4", "Sr2IrO4", "Ba2IrO4", "Sr3Ir2O7", "Na2IrO3", "Li2IrO3", "Y2Ir2O7", "Eu2Ir2O7",
        "Sm2Ir2O7", "NaOsO3", "Ba2NaOsO6",
        # Oxyhalides.
        "TiOCl", "TiOBr", "VOCl", "VOBr", "CrOCl", "CrOBr", "FeOCl", "FeOF",
        # Fluorides.
        "VF2", "CrF2", "MnF2", "FeF2", "CoF2", "NiF2", "CuF2", "TiF3", "VF3", "CrF3", "MnF3",
        "FeF3", "CoF3", "NiF3", "VF4", "KVF3", "KCrF3", "KMnF3", "KFeF3", "KCoF3", "KNiF3",
        "KCuF3", "NaMnF3", "NaFeF3", "NaCoF3", "NaNiF3", "RbMnF3", "RbFeF3", "CsMnF3", "CsNiF3",
        "LiNiF3", "LiMnF3", "K2MnF4", "K2CoF4", "K2NiF4", "K2CuF4", "Rb2MnF4", "Rb2CoF4", "BaMnF4",
        "BaFeF4", "BaCoF4", "BaNiF4", "Na3FeF6", "Li3FeF6",
        # Chlorides, bromides, iodides.
        "VCl2", "CrCl2", "MnCl2", "FeCl2", "CoCl2", "NiCl2", "CuCl2", "VBr2", "CrBr2", "MnBr2",
        "FeBr2", "CoBr2", "NiBr2", "CuBr2", "VI2", "CrI2", "MnI2", "FeI2", "CoI2", "NiI2", "TiCl3",
        "TiBr3", "VCl3", "VBr3", "VI3", "CrCl3", "CrBr3", "CrI3", "FeCl3", "FeBr3", "RuCl3",
        "RuBr3", "MoCl3", "CsMnCl3", "CsCoCl3", "CsNiCl3", "CsCuCl3", "CsFeCl3", "RbMnCl3",
        "KMnCl3", "Rb2MnCl4", "Rb2CrCl4", "K2IrCl6", "Nb3Cl8", "Nb3Br8", "Nb3I8",
        # Chalcogenides. Magnetic metals (Fe3GeTe2, Fe5GeTe2, CrTe2, VSe2, FeSe, FeS, CoS2) are left
        # out.
        "MnS", "MnSe", "MnTe", "MnS2", "MnSe2", "MnTe2", "NiS2", "NaCrS2", "NaCrSe2", "KCrS2",
        "LiCrS2", "AgCrS2", "AgCrSe2", "CuCrS2", "CuCrSe2", "ZnCr2S4", "ZnCr2Se4", "CdCr2S4",
        "CdCr2Se4", "HgCr2S4", "HgCr2Se4", "MnCr2S4", "FeCr2S4", "CoCr2S4", "CuFeS2", "KFeS2",
        "NiGa2S4", "FeGa2S4", "GaV4S8", "GaV4Se8", "GaNb4Se8", "GaTa4Se8", "BaFe2S3", "BaFe2Se3",
        "K2Fe4Se5", "Rb2Fe4Se5", "Cu2FeSnS4", "Cu2MnSnS4",
        # Layered (van der Waals) magnets.
        "CrGeTe3", "Cr2Ge2Te6", "CrSiTe3", "Cr2Si2Te6", "CrGeSe3", "CrSBr", "CrSeBr", "CrSCl",
        "CrPS4", "CrPSe4", "VPS3", "MnPS3", "FePS3", "CoPS3", "NiPS3", "MnPSe3", "FePSe3",
        "NiPSe3", "CuCrP2S6", "AgCrP2S6", "AgVP2S6", "MnBi2Te4", "MnSb2Te4", "MnBi4Te7",
        "MnBi2Se4",
        # Lanthanides: oxides, chalcogenides, halides, Kondo insulators, rare-earth magnets. CeO is
        # only ever built from a list of elements and stands for CeO2 or Ce2O3. GdN, CeN and the
        # intermetallic compounds are metals or contested.
        "CeO", "CeO2", "Ce2O3", "Pr2O3", "PrO2", "Pr6O11", "Nd2O3", "Sm2O3", "EuO", "Eu2O3",
        "Eu3O4", "Gd2O3", "Tb2O3", "TbO2", "Tb4O7", "Dy2O3", "Ho2O3", "Er2O3", "Tm2O3", "Yb2O3",
        "Ce2S3", "EuS", "EuSe", "EuTe", "SmS", "SmSe", "SmTe", "TmTe", "SmB6", "YbB12",
        "Ce3Bi4Pt3", "EuF2", "EuCl2", "CeF3", "CeCl3", "GdCl3", "GdBr2", "Dy2Ti2O7",
        "Ho2Ti2O7", "Tb2Ti2O7", "Er2Ti2O7", "Yb2Ti2O7", "Gd2Ti2O7", "YbMgGaO4", "NaYbO2", "NaYbS2",
        "NaYbSe2",
        # Actinides with an open 5f shell. UO is only ever built from a list of elements and stands
        # for the oxides of uranium. ThO2, UO3 and UF6 have no 5f electron; UC, UN and US are
        # metals.
        "UO", "UO2", "U3O8", "U4O9", "U3O7", "NpO2", "PuO2", "Pu2O3", "AmO2", "Am2O3", "CmO2",
        "NaUO3", "USiO4", "UF3", "UF4", "UCl3", "UCl4",
    }
)
# fmt: on

# Meaning: 3d elements whose oxides have an open d shell in nearly all their compositions.
# Left out: Sc and Zn (d0 and d10 only), Ti (TiO2 and the titanates are d0; the Ti3+ oxides are
# formulas of the table above), Cu (see below), and all 4d and 5d elements.
# Known limits: V2O5, CrO3, chromates and permanganates share their elements with open-shell oxides.
_OPEN_SHELL_METALS: Final = frozenset({"V", "Cr", "Mn", "Fe", "Co", "Ni"})

# Partners with which vanadium forms vanadates(V), d0: BiVO4, YVO4, InVO4, Ag3VO4.
_VANADATE_PARTNERS: Final = frozenset({"Bi", "Y", "In", "Ag"})

# Partners with which copper forms cuprates, Cu2+. Alone with oxygen copper is left out, since Cu2O
# (d10), oxygen on a copper surface and CuO share their elements; CuO is a formula of the table
# above. With Al, Ga, Sc and In it forms d10 delafossites.
_CUPRATE_PARTNERS: Final = frozenset({"La", "Pr", "Nd", "Sm", "Eu", "Gd", "Ca", "Ba"})

# With these beside the oxygen copper is Cu+, d10 (LaCuOS, LaCuOSe).
_CHALCOGENS: Final = frozenset({"S", "Se", "Te"})

# Carbon or nitrogen with oxygen on a metal is an adsorbate (CO, NO) or a molecule (carbonyls) far
# more often than a carbonate or oxynitride; the carbonates are formulas of the table above.
_ADSORBATE_ELEMENTS: Final = frozenset({"C", "N"})


def is_transition_metal_oxide(species: Sequence[str]) -> bool:
    """Return whether the species are those of an oxide with an open 3d shell.

    True if oxygen stands with V, Cr, Mn, Fe, Co or Ni, or with Cu and a partner of the cuprates;
    false for d0, d10 and noble-metal oxides and if carbon or nitrogen is present. The counts are
    not known here, so oxides of one metal in several valences are judged by the commonest.
    """
    if "O" not in species:
        return False
    elements = frozenset(species)
    if not elements.isdisjoint(_ADSORBATE_ELEMENTS):
        return False
    open_shell = elements & _OPEN_SHELL_METALS
    if open_shell == {"V"}:
        return elements.isdisjoint(_VANADATE_PARTNERS)
    if open_shell:
        return True
    return (
        "Cu" in elements
        and not elements.isdisjoint(_CUPRATE_PARTNERS)
        and elements.isdisjoint(_CHALCOGENS)
    )
