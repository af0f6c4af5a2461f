"""Formulas as people type them in small letters ("srtio3", "mos2").

A request is matched in lower case, so a row serves "srtio3" as well as "SrTiO3"; it also puts the
compound above a dopant or adsorbate that is written first ("Mn-doped GaAs", "H2O on TiO2").
"""

from collections.abc import Mapping
from types import MappingProxyType
from typing import Final

# Meaning: formulas of which the lower-case spelling is a row.
# Criterion: every compound of the gap tables and of the correlated formulas, and the metals and
# contested compounds in common use, in the orders in which their elements are written.
# Order: they are tried from the first to the last, and the first found wins: many elements before
# few, open shells before the closed-shell compounds that support or dope them, substrates last.
# Sources: those of the tables named.
# Left out: spellings that are words or abbreviations (gap, gas, use, tin, sic); elements and
# molecules; formulas that are only built from a list of elements (AlO).
# fmt: off
_FORMULAS: Final[tuple[str, ...]] = (
    # COMPOUNDS WITH OXYGEN AND A SECOND ANION, AND HYBRID PEROVSKITES
    # Hybrid halide perovskites.
    "CH3NH3PbI3", "CH3NH3PbBr3", "CH3NH3PbCl3", "CH3NH3SnI3", "CH3NH3SnBr3", "CH3NH3GeI3",
    "CNH6PbI3", "CH6NPbI3", "CH5N2PbI3", "CH5N2PbBr3", "CH5N2SnI3", "CN2H5PbI3",
    # Hydroxides and hydrous salts.
    "MnOOH", "FeOOH", "CoOOH", "NiOOH", "MnO2H", "FeO2H", "FeHO2", "CoO2H", "CoHO2", "NiO2H",
    "NiHO2", "MnO2H2", "FeO2H2", "CoO2H2", "NiO2H2", "CuO2H2", "FeO3H3", "ZnCu3O6H6Cl2",
    "MgO2H2", "CaO2H2", "AlO3H3", "AlO2H", "AlOOH", "LiOH", "NaOH", "KOH", "Al2Si2O9H4",
    "Al2Si4O12H2", "Mg3Si4O12H2", "Mg3Si2O9H4", "KAl3Si3O12H2", "CaSO6H4", "KH2PO4", "NH4H2PO4",
    "Ca5P3O13H",
    # Phosphates.
    "LiFePO4", "LiMnPO4", "LiCoPO4", "LiNiPO4", "NaFePO4", "NaMnPO4", "FePO4", "MnPO4", "CoPO4",
    "Li3V2P3O12", "Na3V2P3O12", "Na3Zr2Si2PO12", "LiVOPO4", "Li2FeP2O7", "Na2FeP2O7", "Ag3PO4",
    "LaFePO",
    "KTiOPO4", "AlPO4", "BPO4", "GaPO4", "Li3PO4", "YPO4", "LaPO4", "LuPO4", "ScPO4", "Ca3P2O8",
    # Oxyhalides.
    "Sr2CuO2Cl2", "Ca2CuO2Cl2", "LiVPO4F", "NaVPO4F", "Na3V2P2O8F3", "LiFeSO4F", "LiFePO4F",
    "Na2FePO4F", "TiOCl", "TiOBr", "VOCl", "VOBr", "CrOCl", "CrOBr", "FeOCl", "FeOF", "BiOCl",
    "BiOBr", "BiOI", "LaOCl", "LaOF", "KBe2BO3F2", "Ca5P3O12F", "KClO4", "LiClO4",
    # Oxychalcogenides and tellurates.
    "Cu2OSeO3", "Cu3TeO6", "Na2Co2TeO6", "Ni3TeO6", "Cr2TeO6", "Fe2TeO6", "LaCuOS", "LaCuOSe",
    "BiCuSeO", "BiCuOSe", "BiCuOS", "BiCuOTe", "Bi2O2Se", "Bi2O2S", "Bi2O2Te", "La2O2S",
    "Y2O2S", "Gd2O2S",
    # Oxynitrides and nitrates.
    "TaON", "LaTiO2N", "LaTaON2", "BaTaO2N", "SrTaO2N", "CaTaO2N", "BaNbO2N", "SrNbO2N",
    "Si2N2O", "AlON", "KNO3", "NaNO3", "LiNO3",
    # Silicates.
    "Fe2SiO4", "Mn2SiO4", "Co2SiO4", "Ni2SiO4", "FeSiO3", "Fe3Al2Si3O12", "Mn3Al2Si3O12",
    "Ca3Fe2Si3O12", "Ca3Cr2Si3O12", "BaCuSi2O6", "Li2FeSiO4", "Li2MnSiO4", "Li2CoSiO4", "USiO4",
    "Bi12SiO20", "ZrSiO4", "HfSiO4", "Mg2SiO4", "MgSiO3", "CaSiO3", "Ca2SiO4", "Ca3SiO5",
    "Be2SiO4", "Zn2SiO4", "Al2SiO5", "Al6Si2O13", "CaMgSi2O6", "NaAlSi3O8", "KAlSi3O8",
    "KAlSi2O6", "NaAlSi2O6", "CaAl2Si2O8", "LiAlSiO4", "LiAlSi2O6", "LiAlSi4O10",
    "Be3Al2Si6O18", "Mg2Al4Si5O18", "Mg3Al2Si3O12", "Ca3Al2Si3O12", "Y2SiO5", "Lu2SiO5",
    "Li2SiO3", "Li4SiO4", "Na2SiO3",
    # Carbonates.
    "FeCO3", "MnCO3", "CoCO3", "NiCO3", "Ti3C2O2", "Ti2CO2", "Mo2CO2", "Sc2CO2", "CaCO3",
    "MgCO3", "SrCO3", "BaCO3", "Li2CO3", "Na2CO3", "K2CO3", "ZnCO3", "CaMgC2O6",
    # OXIDES OF TWO OR MORE OTHER ELEMENTS, open shells first. Those that also serve as substrates
    # stand with the substrates.
    # Oxides with an open d or f shell.
    "MgFe2O4", "MnFe2O4", "CoFe2O4", "NiFe2O4", "CuFe2O4", "ZnFe2O4", "CdFe2O4", "CaFe2O4",
    "FeAl2O4", "MnAl2O4", "CoAl2O4", "NiAl2O4", "FeCr2O4", "CoCr2O4", "MnCr2O4", "NiCr2O4",
    "CuCr2O4", "ZnCr2O4", "MgCr2O4", "CdCr2O4", "HgCr2O4", "ZnCo2O4", "MnCo2O4", "FeCo2O4",
    "CoMn2O4", "ZnMn2O4", "MgMn2O4", "LiMn2O4", "MnV2O4", "FeV2O4", "MgV2O4", "ZnV2O4",
    "CdV2O4", "Fe2TiO4", "Mn2TiO4", "LiCoVO4", "LiNiVO4", "Li2NiMn3O8", "Y3Fe5O12", "Gd3Fe5O12",
    "Tb3Fe5O12", "Tm3Fe5O12", "Lu3Fe5O12", "BaFe12O19", "SrFe12O19", "PbFe12O19", "GaFeO3",
    "AlFeO3", "Fe2TiO5", "LaTiO3", "YTiO3", "GdTiO3", "SmTiO3", "EuTiO3", "LaVO3", "YVO3",
    "CeVO3", "PrVO3", "NdVO3", "PbVO3", "LaCrO3", "YCrO3", "NdCrO3", "GdCrO3", "BiCrO3",
    "LaMnO3", "YMnO3", "PrMnO3", "NdMnO3", "SmMnO3", "EuMnO3", "GdMnO3", "TbMnO3", "DyMnO3",
    "HoMnO3", "ErMnO3", "LuMnO3", "ScMnO3", "InMnO3", "BiMnO3", "CaMnO3", "SrMnO3", "BaMnO3",
    "CaMn7O12", "CaMn2O4", "LaFeO3", "YFeO3", "PrFeO3", "NdFeO3", "SmFeO3", "EuFeO3", "GdFeO3",
    "TbFeO3", "DyFeO3", "HoFeO3", "ErFeO3", "LuFeO3", "BiFeO3", "CaFeO3", "Sr2Fe2O5",
    "Ca2Fe2O5", "LuFe2O4", "LaCoO3", "PrCoO3", "NdCoO3", "GdCoO3", "YCoO3", "BiCoO3",
    "Ca3Co2O6", "Ca3CoMnO6", "PrNiO3", "NdNiO3", "SmNiO3", "EuNiO3", "GdNiO3", "DyNiO3",
    "HoNiO3", "YNiO3", "LuNiO3", "BiNiO3", "La2NiO4", "Pr2NiO4", "Nd2NiO4", "LaSrMnO4",
    "La2NiMnO6", "La2CoMnO6", "La2FeCrO6", "Bi2NiMnO6", "Bi2FeCrO6", "Sr2CrOsO6", "KBiFe2O5",
    "La2CuO4", "Pr2CuO4", "Nd2CuO4", "Sm2CuO4", "CaCuO2", "SrCuO2", "Sr2CuO3", "Ca2CuO3",
    "YBa2Cu3O6", "CuGeO3", "CuBi2O4", "Bi2CuO4", "CuWO4", "CuB2O4", "CuSb2O6", "SrCu2B2O6",
    "LiCu2O2", "LiCuVO4", "CaCu3Ti4O12", "CuSO4", "CuCrO2", "CuFeO2", "CuMnO2", "CuCoO2",
    "AgCrO2", "AgFeO2", "LiVO2", "LiCrO2", "LiMnO2", "LiFeO2", "LiCoO2", "LiNiO2", "NaVO2",
    "NaCrO2", "NaMnO2", "NaFeO2", "NaCoO2", "NaNiO2", "KCrO2", "Li2MnO3", "Li2FeO3",
    "Li3NiMnCoO6", "Li10Ni8MnCoO20", "Li10Ni6Mn2Co2O20", "Li10Ni5Mn3Co2O20", "LiFeBO3",
    "LiMnBO3", "MnTiO3", "FeTiO3", "CoTiO3", "NiTiO3", "MnWO4", "FeWO4", "CoWO4", "NiWO4",
    "FeVO4", "MnNb2O6", "FeNb2O6", "CoNb2O6", "NiNb2O6", "FeTa2O6", "Mn4Nb2O9", "Fe4Nb2O9",
    "Co4Nb2O9", "Ni3V2O8", "Co3V2O8", "BaCo2V2O8", "BaNi2V2O8", "BaCo2As2O8", "Na3Co2SbO6",
    "Ba3CoSb2O9", "MnGeO3", "MnSO4", "FeSO4", "CoSO4", "NiSO4", "Ca2RuO4", "Sr2IrO4", "Ba2IrO4",
    "Sr3Ir2O7", "Na2IrO3", "Li2IrO3", "Y2Ir2O7", "Eu2Ir2O7", "Sm2Ir2O7", "Nd2Ir2O7", "NaOsO3",
    "Ba2NaOsO6", "Dy2Ti2O7", "Ho2Ti2O7", "Tb2Ti2O7", "Er2Ti2O7", "Yb2Ti2O7", "Gd2Ti2O7",
    "YbMgGaO4", "NaYbO2", "NaUO3",
    # Other oxides.
    "BaTiO3", "PbTiO3", "CaTiO3", "KNbO3", "NaNbO3", "KNaNb2O6", "BiNaTi2O6", "NaBiTi2O6",
    "BaSrTi2O6", "BaSnO3", "CdSnO3", "Cd2SnO4", "Zn2SnO4", "CdIn2O4", "InGaZnO4", "Bi4Ti3O12",
    "Bi2WO6", "Bi2MoO6", "BiVO4", "PbMoO4", "SnNb2O6", "AgNbO3", "AgTaO3", "AgVO3", "Ag3VO4",
    "Ag2MoO4", "Ag2WO4", "NaBiO3", "ZnRh2O4", "CuAlO2", "CuGaO2", "SrCu2O2", "Ag2CrO4",
    "YBa2Cu3O7", "Bi2Sr2CaCu2O8", "HgBa2CuO4", "Tl2Ba2CuO6", "Sr2RuO4", "SrRuO3", "CaRuO3",
    "SrIrO3", "LaNiO3", "NdNiO2", "LaNiO2", "La3Ni2O7", "SrVO3", "CaVO3", "SrMoO3", "SrNbO3",
    "SrCrO3", "SrFeO3", "SrCoO3", "LaCuO3", "Sr2FeMoO6", "Sr2FeReO6", "NiCo2O4", "LiV2O4",
    "LiTi2O4", "PdCoO2", "PtCoO2", "PdCrO2", "BaBiO3", "BaPbO3", "LaFeAsO", "PbZrO3", "ZnTiO3",
    "SrSnO3", "NaTaO3", "Pb2ZrTiO6", "La2SrMn3O9", "BaCeO3", "PbWO4", "CdWO4", "ZnWO4", "YVO4",
    "CaMoO4", "La2Ti2O7", "Y2Ti2O7", "ZnAl2O4", "LiNbO2", "MgTiO3", "CdTiO3", "HfZrO4",
    "ZrHfO4", "MgGa2O4", "ZnGa2O4", "BeAl2O4", "SrAl2O4", "CaAl2O4", "BaAl2O4", "Ca12Al14O33",
    "LiAlO2", "LiGaO2", "Al2MgO4", "Y3Al5O12", "Lu3Al5O12", "Gd3Ga5O12", "LuAlO3", "GdAlO3",
    "LaScO3", "LaLuO3", "SrZrO3", "BaZrO3", "CaZrO3", "SrHfO3", "BaHfO3", "CaSnO3", "La2Zr2O7",
    "Gd2Zr2O7", "La2Hf2O7", "Bi4Ge3O12", "CaWO4", "SrWO4", "BaWO4", "Li7La3Zr2O12", "Li2ZrO3",
    "BaB2O4", "LiB3O5", "CsLiB6O10", "YBO3", "Li2B4O7", "CaSO4", "SrSO4", "BaSO4", "Li2SO4",
    "Na2SO4", "K2SO4",
    # OXYGEN-FREE COMPOUNDS OF THREE OR MORE ELEMENTS
    # Halides.
    "KVF3", "KCrF3", "KMnF3", "KFeF3", "KCoF3", "KNiF3", "KCuF3", "NaMnF3", "NaFeF3", "NaCoF3",
    "NaNiF3", "RbMnF3", "RbFeF3", "CsMnF3", "CsNiF3", "LiNiF3", "LiMnF3", "K2MnF4", "K2CoF4",
    "K2NiF4", "K2CuF4", "Rb2MnF4", "Rb2CoF4", "BaMnF4", "BaFeF4", "BaCoF4", "BaNiF4", "Na3FeF6",
    "Li3FeF6", "CsMnCl3", "CsCoCl3", "CsNiCl3", "CsCuCl3", "CsFeCl3", "RbMnCl3", "KMnCl3",
    "Rb2MnCl4", "Rb2CrCl4", "K2IrCl6", "CrSBr", "CrSeBr", "CrSCl", "BiTeI", "BiTeBr", "BiTeCl",
    "SbSI", "SbSeI", "SbSBr", "BiSI", "BiSeI", "BiSBr", "AgBiI4", "Ag2BiI5", "AgBi2I7",
    "CsPbCl3", "CsPbBr3", "CsPbI3", "CsSnCl3", "CsSnBr3", "CsSnI3", "CsGeCl3", "CsGeBr3",
    "CsGeI3", "RbPbI3", "Cs2AgBiBr6", "Cs2AgBiCl6", "Cs2AgInCl6", "Cs2InAgCl6", "Cs2AgSbCl6",
    "Cs2AgSbBr6", "Cs2SnI6", "Cs2SnBr6", "Cs2TiBr6", "Cs2TiI6", "Cs2PdBr6", "Cs2PtI6",
    "Cs3Bi2I9", "Cs3Bi2Br9", "Cs3Sb2I9", "Cs3Sb2Br9", "Rb3Bi2I9", "Rb3Sb2I9", "Cs2SnCl6",
    "Cs4PbBr6", "CsCu2I3", "Cs3Cu2I5", "CsPb2Br5", "Li6PS5Cl", "Li6PS5Br", "Li6PS5I", "Li7PS6",
    "Li7P3S11", "Li3PS4", "Na3PS4",
    "Cu6PS5Cl", "Cu6PS5Br", "Cu6PS5I", "Cu7PS6", "Ag8GeS6", "Ag8SnS6", "Ag8GeSe6", "Ag9GaSe6",
    "Li3InCl6", "LiPF6", "Ti3C2F2",
    "BaFCl", "BaFBr", "LiYF4", "NaYF4", "LiLuF4", "LiCaAlF6", "LiSrAlF6", "KMgF3", "NaMgF3",
    "KZnF3", "KCaF3", "CsCaF3", "RbCaF3", "LiBaF3", "BaLiF3", "Na3AlF6", "K2SiF6", "K2NaAlF6",
    "Cs2LiYCl6", "Li3YCl6", "Li3YBr6", "LiAlCl4",
    # Chalcogenides.
    "NaCrS2", "NaCrSe2", "KCrS2", "LiCrS2", "AgCrS2", "AgCrSe2", "CuCrS2", "CuCrSe2", "ZnCr2S4",
    "ZnCr2Se4", "CdCr2S4", "CdCr2Se4", "HgCr2S4", "HgCr2Se4", "MnCr2S4", "FeCr2S4", "CoCr2S4",
    "CuFeS2", "KFeS2", "NiGa2S4", "FeGa2S4", "GaV4S8", "GaV4Se8", "GaNb4Se8", "GaTa4Se8",
    "BaFe2S3", "BaFe2Se3", "K2Fe4Se5", "Rb2Fe4Se5", "Cu2FeSnS4", "Cu2MnSnS4", "CrGeTe3",
    "Cr2Ge2Te6", "CrSiTe3", "Cr2Si2Te6", "CrGeSe3", "CrPS4", "CrPSe4", "VPS3", "MnPS3", "FePS3",
    "CoPS3", "NiPS3", "MnPSe3", "FePSe3", "NiPSe3", "CuCrP2S6", "AgCrP2S6", "AgVP2S6",
    "MnBi2Te4", "MnSb2Te4", "MnBi4Te7", "MnBi2Se4", "NaYbS2", "NaYbSe2", "CdZnTe", "ZnCdTe",
    "HgCdTe", "CdHgTe", "CdSSe", "CdSeTe", "ZnSSe", "ZnSeTe", "ZnCdS", "CdZnS", "ZnCdSe",
    "CdZnSe", "CdMnTe", "ZnMnTe", "SnSSe", "PbSSe", "PbSnSe", "PbSnTe", "SnPbTe", "PbSeTe",
    "Ge2Sb2Te5", "GeSb2Te4", "GeSb4Te7", "Bi2Te2Se", "Bi2Se2Te", "Bi2Te2S", "BiSbTe3",
    "GeBi2Te4", "SnBi2Te4", "PbBi2Te4", "TlGaS2", "TlGaSe2", "TlInS2", "TlInSe2", "ZnIn2S4",
    "ZnIn2Se4", "CdIn2S4", "CdIn2Se4", "CdGa2S4", "CdGa2Se4", "HgGa2S4", "HgGa2Se4", "ZnGa2S4",
    "ZnGa2Se4", "MgIn2S4", "MoSSe", "WSSe", "MoWS2", "Ta2NiSe5", "Ta2NiS5", "CuInP2S6",
    "AgInP2S6", "Cu3VS4", "Cu3NbS4", "Cu3TaS4", "BaZrS3", "SrZrS3", "CaZrS3", "BaHfS3",
    "SrHfS3", "BaTiS3", "CuAlS2", "CuAlSe2", "CuAlTe2", "CuGaS2", "CuGaSe2", "CuGaTe2",
    "CuInS2", "CuInSe2", "CuInTe2", "CuInGaSe2", "AgAlS2", "AgAlSe2", "AgAlTe2", "AgGaS2",
    "AgGaSe2", "AgGaTe2", "AgInS2", "AgInSe2", "AgInTe2", "LiInS2", "LiInSe2", "LiGaSe2",
    "LiGaTe2", "Cu2ZnSnS4", "Cu2ZnSnSe4", "Cu2ZnGeS4", "Cu2ZnGeSe4", "Cu2CdSnS4", "Cu2CdSnSe4",
    "Cu2SnS3", "Cu2SnSe3", "Cu2GeS3", "Cu2GeSe3", "Ag2ZnSnS4", "Ag2ZnSnSe4", "Cu3AsS4",
    "Cu3SbS4", "Cu3SbSe4", "CuSbS2", "CuSbSe2", "CuBiS2", "AgBiS2", "AgBiSe2", "AgSbS2",
    "AgSbSe2", "NaSbS2", "NaBiS2", "Ag3AsS3", "Ag3SbS3", "Li3PS4", "Li10GeP2S12", "Co3Sn2S2",
    "TaIrTe4", "Fe3GeTe2", "Fe4GeTe2", "Fe5GeTe2", "Fe3GaTe2", "NiCo2S4", "CuFe2S3", "Cu5FeS4",
    "ZrSiS", "ZrSiSe",
    # Pnictides.
    "Ce3Bi4Pt3", "AlGaAs", "GaAlAs", "InGaAs", "GaInAs", "InGaP", "GaInP", "GaAsP", "InAsP",
    "InAlAs", "AlInAs", "AlInSb", "InAsSb", "GaAsSb", "InGaSb", "GaInSb", "AlGaSb", "InGaN",
    "GaInN", "GaAsN", "GaNAs", "GaAsBi", "GaBiAs", "InGaAsP", "GaInAsP", "AlGaInP", "AlGaInAs",
    "ZnGeN2", "ZnSnN2", "CaZn2N2", "MoSi2N4", "WSi2N4", "Na2KSb", "K2CsSb", "CsK2Sb", "TiCoSb",
    "ZrCoSb", "HfCoSb", "NbFeSb", "VFeSb", "TaFeSb", "LiZnN", "LiZnP", "LiZnAs", "LiMgN",
    "LiMgP", "LiCdP", "BaMn2As2", "ZnSiP2", "ZnGeP2", "ZnSnP2", "CdSiP2", "CdGeP2", "CdSnP2",
    "ZnSiAs2", "ZnGeAs2", "ZnSnAs2", "CdSiAs2", "CdGeAs2", "CdSnAs2", "BaFe2As2", "SrFe2As2",
    "CaFe2As2", "LiFeAs", "NaFeAs", "NiMnSb", "CoMnSb", "Ti2AlN", "TiAlN", "AlScN", "AlGaN",
    "YbMnBi2", "EuCd2As2", "EuIn2As2", "MgSiN2", "ZnSiN2",
    # Intermetallic compounds, carbides, borides, silicides, hydrides.
    "TiNiSn", "ZrNiSn", "HfNiSn", "NbCoSn", "Ba8Ga16Ge30", "Sr8Ga16Ge30", "Mg2NiH4", "Mg2FeH6",
    "Co2MnSi", "Co2MnGe", "Co2MnGa", "Co2FeSi", "Co2FeAl", "Co2CrAl", "Ni2MnGa", "Ni2MnIn",
    "Ni2MnSn", "Fe2VAl", "CoCrFeNi", "CrMnFeCoNi", "CoCrFeMnNi", "AlCoCrFeNi", "NbMoTaW",
    "MoNbTaW", "HfNbTaTiZr", "Nd2Fe14B", "CeCoIn5", "CeRhIn5", "CeCu2Si2", "URu2Si2", "LaNi5H6",
    "Ti3AlC2", "Ti2AlC", "Ti3SiC2", "V2AlC", "Cr2AlC", "Nb2AlC", "Mo2TiC2", "LiBH4", "NaBH4",
    "LiAlH4", "NaAlH4",
    # BINARY COMPOUNDS: oxides with an open shell first, then by anion
    # Oxides with an open d or f shell.
    "MnO", "FeO", "NiO", "CuO", "Mn2O3", "Mn3O4", "Fe2O3", "Co3O4", "Cr2O3", "Ti2O3", "CeO2",
    "Ce2O3", "Pr2O3", "PrO2", "Pr6O11", "Nd2O3", "Sm2O3", "EuO", "Eu2O3", "Eu3O4", "Gd2O3",
    "Tb2O3", "TbO2", "Tb4O7", "Dy2O3", "Ho2O3", "Er2O3", "Tm2O3", "Yb2O3", "UO2", "U3O8",
    "U4O9", "U3O7", "NpO2", "PuO2", "Pu2O3", "AmO2", "Am2O3", "CmO2",
    # Chalcogenides.
    "MnS", "MnSe", "MnTe", "MnS2", "MnSe2", "MnTe2", "NiS2", "Ce2S3", "EuS", "EuSe", "EuTe",
    "SmS", "SmSe", "SmTe", "TmTe", "ZnSe", "ZnTe", "CdS", "CdSe", "CdTe", "HgS", "MgTe", "GeSe",
    "GeTe", "GeS2", "GeSe2", "SnS", "SnSe", "SnTe", "SnS2", "SnSe2", "Sn2S3", "PbSe", "PbTe",
    "Si2Te3", "As2S3", "As2Se3", "As2Te3", "As4S4", "Sb2S3", "Sb2Se3", "Sb2Te3", "Bi2S3",
    "Bi2Se3", "Bi2Te3", "GaSe", "InSe", "Ga2S3", "Ga2Se3", "Ga2Te3", "In2S3", "In2Se3",
    "In2Te3", "Al2Se3", "Al2Te3", "TlSe", "Cu2S", "Cu2Se", "Ag2S", "Ag2Se", "Ag2Te", "MoS2",
    "MoSe2", "MoTe2", "WS2", "WSe2", "ReS2", "ReSe2", "HfS2", "HfSe2", "ZrS2", "ZrSe2", "PtS2",
    "PdS2", "PdSe2", "TiS3", "ZrS3", "ZrSe3", "HfS3", "HfSe3", "FeS2", "RuS2", "RuSe2", "OsS2",
    "YbS", "YbSe", "YbTe", "La2S3", "Al2S3", "UTe2", "H3S", "VS2", "VSe2", "VTe2", "NbS2",
    "NbSe2", "NbTe2", "TaS2", "TaSe2", "TaTe2", "TiS2", "TiSe2", "TiTe2", "ZrTe2", "HfTe2",
    "WTe2", "PtSe2", "PtTe2", "PdTe2", "NiTe2", "CoTe2", "NiSe2", "CoSe2", "CoS2", "IrTe2",
    "ZrTe5", "HfTe5", "Cr2Te3", "CrTe2", "CrTe", "CrSe", "Cr3Te4", "CrSe2", "CrS2", "FeSe",
    "FeS", "FeSe2", "FeTe2", "Fe3S4", "Fe7S8", "NiSe", "Ni3S2", "Co9S8", "Co3S4", "CoSe",
    "Cu2Te", "Cu9S5", "HgSe", "HgTe", "MoS3", "Na2S", "K2S", "Li2S", "Li2Se", "Li2S2", "Li2S6",
    "Li2S8",
    # Halides.
    "VF2", "CrF2", "MnF2", "FeF2", "CoF2", "NiF2", "CuF2", "TiF3", "VF3", "CrF3", "MnF3",
    "FeF3", "CoF3", "NiF3", "VF4", "VCl2", "CrCl2", "MnCl2", "FeCl2", "CoCl2", "NiCl2", "CuCl2",
    "VBr2", "CrBr2", "MnBr2", "FeBr2", "CoBr2", "NiBr2", "CuBr2", "VI2", "CrI2", "MnI2", "FeI2",
    "CoI2", "NiI2", "TiCl3", "TiBr3", "VCl3", "VBr3", "VI3", "CrCl3", "CrBr3", "CrI3", "FeCl3",
    "FeBr3", "RuCl3", "RuBr3", "MoCl3", "Nb3Cl8", "Nb3Br8", "Nb3I8", "EuF2", "EuCl2", "CeF3",
    "CeCl3", "GdCl3", "GdI2", "GdBr2", "UF3", "UF4", "UCl3", "UCl4", "CuCl", "CuBr", "AgF",
    "AgCl", "AgBr", "PbI2", "BiI3", "SbI3", "SnI2", "SnI4", "HgI2", "InI", "TlCl",
    "TlBr", "TlI", "PbBr2", "LiF", "LiCl", "LiBr", "LiI", "NaF", "NaBr", "NaI", "KCl", "KBr",
    "RbF", "RbCl", "RbBr", "RbI", "CsF", "CsBr", "CsI", "BeF2", "MgF2", "SrF2", "ZnF2", "CdF2",
    "PbF2", "MgCl2", "CaCl2", "SrCl2", "BaCl2", "ZnCl2", "CdCl2", "PbCl2", "MgBr2", "CaBr2",
    "SrBr2", "BaBr2", "CdBr2", "SrI2", "BaI2", "AlF3", "GaF3", "ScF3", "YF3", "LaF3", "GdF3",
    "LuF3", "AlCl3", "YCl3", "LaCl3", "LaBr3", "ZrF4", "HfF4", "ThF4",
    # OTHER BINARY COMPOUNDS, AND SUBSTRATES
    # Pnictides.
    "AlSb", "InSb", "Cu3N", "CuP2", "Zn3P2", "Zn3As2", "ZnP2", "ZnAs2", "ZnSb", "Cd3P2", "CdP2",
    "CdAs2", "CdSb", "Mg3Sb2", "Mg3N2", "Li3N", "Sn3N4", "Ta3N5", "C3N4", "C2N", "C3N", "Cs3Sb",
    "Na3Sb", "K3Sb", "Rb3Sb", "CoP3", "CoAs3", "CoSb3", "RhSb3", "IrSb3", "FeSb2", "FeAs2",
    "FeP2", "PtSb2", "PtAs2", "Fe16N2", "Fe4N", "Fe3N", "Mn4N", "MnBi", "MnAs", "MnSb", "MnP",
    "CrAs", "CrSb", "Mo2N", "NbN", "HfN", "ZrN", "CrN", "VN", "GdN", "Cr2N", "W2N", "ThN",
    "Ni2P", "Fe2P", "Cd3As2", "Na3Bi", "TaAs", "NbAs", "NbP", "WP2", "MoP2", "LaSb", "In2Bi",
    "Mg3Bi2", "Zn3N2", "LaBi", "BN", "Si3N4", "P3N5",
    # Intermetallic compounds, carbides, borides, silicides, hydrides.
    "SmB6", "YbB12", "SiGe", "GeSi", "Mg2Si", "Mg2Ge", "Mg2Sn", "BaSi2", "CrSi2", "FeSi2",
    "FeSi", "Ru2Si3", "OsSi2", "B4C", "B12C3", "FeGa3", "RuGa3", "YH3", "C22H14", "C18H12",
    "C42H28", "Al4C3", "Mn3Ga", "Mn2Au", "Mn3Sn", "Mn3Ge", "Mn3Ir", "Mn3Pt", "MnPt", "IrMn3",
    "Fe3Al", "Fe3Si", "FeAl", "Ni3Al", "Al3Sc", "NiAl", "TiAl", "Ti3Al", "Al3Ti", "TiAl3", "NiTi",
    "CuZn", "Cu3Au", "CuAu", "AuCu", "AuCu3", "FePt", "CoPt", "FePd", "FeCo", "FeNi", "NiFe",
    "FeRh", "FeCr", "CoFe", "SmCo5", "Sm2Co17", "YCo5", "Fe3C", "MnSi", "CoSi", "MnAl", "FeGe",
    "FeSn", "Fe3Sn2", "CoSn", "MgB2", "Nb3Sn", "Nb3Ge", "Nb3Al", "V3Si", "UPt3", "UGe2",
    "U3Si2", "U3Si", "UAl2", "LaNi5", "TiFe", "LaH10", "Al2Cu", "MgZn2", "Mg2Ni", "Mg17Al12",
    "Mg2Ca", "ZrV2", "ZrCu", "Cu5Zr", "AgCd", "HfB2", "TiB2", "ZrB2", "ReB2", "CrB2", "LaB6",
    "CaB6", "YbB6", "WB4", "AlB2", "CoSi2", "NiSi2", "MoSi2", "WSi2", "TiSi2", "PtSi", "Ti3C2",
    "Ti2C", "Mo2C", "Nb2C", "V2C", "Cr3C2", "Cr23C6", "TiH2", "ZrH2", "PdH", "HfC", "NbC",
    "ZrC", "W2C", "Mo2B", "YH2", "UH3", "EuB6", "LiH", "KH", "MgH2", "CaH2", "SrH2", "BaH2",
    # Other oxides.
    "CdO", "Cu2O", "Ag2O", "SnO", "SnO2", "Sn3O4", "PbO", "Pb3O4", "In2O3", "Bi2O3", "HgO",
    "WO3", "MoO3", "V2O5", "Nb2O5", "Rh2O3", "PdO", "PtO2", "LiO2", "NaO2", "Tl2O3", "PbO2",
    "MnO2", "CrO2", "CrO3", "VO2", "V2O3", "V6O13", "Ti3O5", "Ti4O7", "NbO2", "MoO2", "WO2",
    "ReO3", "RuO2", "IrO2", "RhO2", "OsO2", "Sb2O3", "Sb2O5", "TeO2", "Ta2O5", "K2O", "UO3",
    "Fe3O4", "SrO2", "BaO2", "ZnO2", "Na2O2", "Li2O", "Li2O2", "Na2O", "BeO", "CaO", "BaO",
    "B2O3", "Ga2O3", "GeO2", "P2O5", "Sc2O3", "Y2O3", "La2O3", "ZrO2", "HfO2", "ThO2", "Lu2O3",
)
_SUBSTRATES: Final[tuple[str, ...]] = (
    # Substrates, tunnel barriers, and compounds whose name also names a structure ("in the NaCl
    # structure"): below all other formulas.
    "LiNbO3", "LiTaO3", "KTaO3", "MgAl2O4", "DyScO3", "GdScO3", "NdGaO3", "LaGaO3", "YAlO3",
    "LaAlO3", "SrTiO3", "InAs", "GaSb", "InP", "GaN", "AlN", "GaAs", "ZnO", "TiO2", "BaF2",
    "Al2O3", "MgO", "SiO2",
)
# fmt: on

WRITTEN_FORMULAS: Final[Mapping[str, str]] = MappingProxyType(
    {formula.lower(): formula for formula in _FORMULAS}
)
SUBSTRATE_FORMULAS: Final[Mapping[str, str]] = MappingProxyType(
    {formula.lower(): formula for formula in _SUBSTRATES}
)
