"""Formulas with counts that are written so often that every markup of them is made.

Meaning: a formula. Criterion: it stands in titles and questions all the time; of the others the
forms that a plain reading would get wrong are made (see written_forms.py).
Sources: none needed. Left out: molecules, and formulas without counts, which need no markup.
"""

from typing import Final

FREQUENT_FORMULAS: Final = frozenset(
    # Oxides of two metals.
    "SrTiO3 BaTiO3 PbTiO3 CaTiO3 LaAlO3 LaMnO3 LaNiO3 LaCoO3 LaFeO3 BiFeO3 SrRuO3 SrVO3 SrIrO3 "
    "KTaO3 KNbO3 LiNbO3 BaZrO3 BaSnO3 PbZrO3 NdNiO3 YMnO3 MgAl2O4 CoFe2O4 NiFe2O4 BiVO4 La2CuO4 "
    "Sr2IrO4 Sr2RuO4 Ca2RuO4 YBa2Cu3O7 Y3Fe5O12 Y3Al5O12 LiCoO2 LiFePO4 LiMn2O4 LiNiO2 Li2MnO3 "
    "Li7La3Zr2O12 CaCO3 Mg2SiO4 MgSiO3 CuAlO2 "
    # Oxides of one metal.
    "TiO2 SiO2 HfO2 ZrO2 CeO2 UO2 ThO2 VO2 V2O3 V2O5 MnO2 RuO2 IrO2 SnO2 GeO2 CrO2 PbO2 In2O3 "
    "Ga2O3 Al2O3 Fe2O3 Fe3O4 Co3O4 Mn3O4 Cr2O3 Cu2O Ag2O WO3 MoO3 Bi2O3 Y2O3 La2O3 Li2O Ta2O5 "
    "Nb2O5 Ti2O3 "
    # Chalcogenides.
    "MoS2 MoSe2 MoTe2 WS2 WSe2 WTe2 NbSe2 NbS2 TaS2 TaSe2 TiS2 TiSe2 VSe2 ReS2 PtSe2 HfS2 ZrS2 "
    "SnS2 SnSe2 FeS2 Bi2Te3 Bi2Se3 Sb2Te3 Sb2Se3 Sb2S3 In2Se3 Ge2Sb2Te5 CuInSe2 CuInS2 "
    "Cu2ZnSnS4 Cu2S Cu2Se Ag2S Ag2Se MnBi2Te4 Cr2Ge2Te6 Fe3GeTe2 Li3PS4 Li6PS5Cl "
    # Halides, hydrides, nitrides and intermetallic compounds.
    "CrI3 CrCl3 RuCl3 CsPbI3 CsPbBr3 CsSnI3 CH3NH3PbI3 Cs2AgBiBr6 CaF2 MgF2 PbI2 BiI3 MgH2 NaBH4 "
    "Si3N4 C3N4 MgB2 LaB6 SmB6 Mg2Si MoSi2 Cd3As2 Na3Bi BaFe2As2 CoSb3 Mn3Sn Ni3Al Ti3C2".split()
)
