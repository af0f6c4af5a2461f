"""Magnetic behaviour of the elements, as calculations on them and their compounds need it.

Two kinds of look-up meet here. A request about one element asks for the ground state of the
element; a request about a compound asks whether any of its elements calls for magnetic moments at
the start. An element that is complex by itself and carries a moment in compounds (Cr, Mn, Eu) is
therefore in two tables.

Sources: C. Kittel, Introduction to Solid State Physics, 8th edition (2005), ferromagnets; E.
Fawcett, Rev. Mod. Phys. 60, 209 (1988), spin-density wave of Cr; D. Hobbs, J. Hafner and D. Spisak,
Phys. Rev. B 68, 014407 (2003), noncollinear alpha-Mn; J. Jensen and A. R. Mackintosh, Rare Earth
Magnetism (Oxford, 1991), lanthanides; K. T. Moore and G. van der Laan, Rev. Mod. Phys. 81, 235
(2009), and J. C. Lashley et al., Phys. Rev. B 72, 054416 (2005), actinides; CRC Handbook of
Chemistry and Physics, 97th edition (2016), susceptibilities.
"""

from typing import Final

# Meaning: elements that are nonmagnetic metals in bulk. A lone one is a metal for which plain DFT
# serves; in a compound it says nonmagnetic unless a magnetic element stands beside it.
# Criterion: a metal whose ground state has neither magnetic order nor local moments.
# Exceptions: Sb and Bi are semimetals and are here because they are calculated as metals (smearing,
# dense k meshes). V, Ru, Ir and Cu carry moments in some compounds (VI3, RuCl3, Sr2IrO4, CuO); the
# elements themselves, and most of their compounds, are nonmagnetic.
# Left out: As (semimetal, nearly always in semiconductors), Ce (alpha-Ce is nonmagnetic, gamma-Ce
# is not, and neither is a case for plain DFT), U to Cm (below), Am and beyond (few calculations).
# fmt: off
NONMAGNETIC_METAL_SPECIES: Final[frozenset[str]] = frozenset(
    {
        # Alkali and alkaline-earth metals.
        "Li", "Na", "K", "Rb", "Cs", "Fr", "Be", "Mg", "Ca", "Sr", "Ba", "Ra",
        # Rare earths without open 4f shell: Yb is divalent (4f14) as a metal.
        "Sc", "Y", "La", "Yb", "Lu",
        # Groups 4 to 7.
        "Ti", "Zr", "Hf", "V", "Nb", "Ta", "Mo", "W", "Tc", "Re",
        # Platinum metals. Pd is close to ferromagnetism and does not reach it.
        "Ru", "Os", "Rh", "Ir", "Pd", "Pt",
        # Noble metals and group 12.
        "Cu", "Ag", "Au", "Zn", "Cd", "Hg",
        # Metals of groups 13 to 16. Sn is the white metal; grey tin has no gap either.
        "Al", "Ga", "In", "Tl", "Sn", "Pb", "Sb", "Bi", "Po",
        # Actinides without 5f moment.
        "Ac", "Th", "Pa",
    }
)
# fmt: on

# Meaning: elements whose magnetic ground state as a metal a collinear cell of one or two atoms
# cannot hold.
# Criterion: spin-density waves, helices, cones, or antiferromagnets with many sublattices.
# Left out: Gd, Tb and Dy, ferromagnets at low temperature; Ce, Pr and the actinides, whose
# magnetism is weak, absent or disputed.
COMPLEX_MAGNETIC_SPECIES: Final[frozenset[str]] = frozenset(
    {
        # Incommensurate spin-density wave; noncollinear alpha-Mn with 58 atoms in its cell.
        "Cr", "Mn",
        # Multi-axial and six-layer antiferromagnets.
        "Nd", "Sm",
        # Helix, cones, and a ferrimagnetic modulation along c.
        "Eu", "Ho", "Er", "Tm",
    }
)  # fmt: skip

# Left out: Gd. The metal is a ferromagnet, but its moment comes from the 4f shell, for which plain
# DFT is no safe choice, and its compounds are rarely ferromagnets; it is a seed species below.
_SIMPLE_FERROMAGNETS: Final = frozenset({"Fe", "Co", "Ni"})

# Left out: V, Ru, Ir and Cu, whose elements must read as nonmagnetic; Ce, since CeO2 (4f0) is by
# far its commonest compound; Yb and Am, nonmagnetic as metals.
_SEEDS: Final = frozenset(
    {
        # 3d elements with a moment in nearly all compounds.
        "Cr", "Mn", "Fe", "Co", "Ni",
        # Lanthanides with an open 4f shell.
        "Pr", "Nd", "Sm", "Eu", "Gd", "Tb", "Dy", "Ho", "Er", "Tm",
        # Actinides whose oxides, pnictides and chalcogenides are calculated with moments. The
        # metals U, Np and Pu have none; a start with moments relaxes to that by itself.
        "U", "Np", "Pu", "Cm",
    }
)  # fmt: skip

# Functions that return the sets above: copy of a frozenset gives the frozenset itself.
# The elements that are simple ferromagnets: itinerant, plain DFT suffices.
phase1_simple_ferromagnet_species: Final = _SIMPLE_FERROMAGNETS.copy
# The elements for which a calculation starts from collinear magnetic moments.
collinear_magmom_seed_species: Final = _SEEDS.copy
