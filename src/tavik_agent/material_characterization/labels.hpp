// The class labels, one group a classifier. A label that two classifiers use stands in the first.
#pragma once

#include "host/recognised.hpp"

namespace tavik::characterization {

// clang-format off
#define TAVIK_LABELS(SAME, AS)                                                              \
  /* no decision: the family says "other", every other classifier "unknown" */              \
  SAME(unknown) SAME(other)                                                                 \
  /* structure mode */                                                                      \
  SAME(external_structure) SAME(periodic_bulk) SAME(molecule_or_cluster)                    \
  /* structure archetype */                                                                 \
  SAME(stm_sample_tip) SAME(layered_parent_exfoliation) SAME(zincblende) SAME(graphene_2d)  \
  SAME(hbn_2d) SAME(tmd_2d) SAME(phosphorene_2d) SAME(mxene_2d) SAME(two_dimensional)       \
  SAME(surface_slab)                                                                        \
  /* system and electronic class */                                                         \
  SAME(metal) SAME(semiconductor) SAME(insulator)                                           \
  /* correlation class */                                                                   \
  SAME(dftu_sensitive) SAME(plain_dft)                                                      \
  /* magnetic class */                                                                      \
  SAME(nonmagnetic) SAME(simple_ferromagnet) SAME(collinear_magnetic)                       \
  SAME(template_antiferromagnet) SAME(noncollinear_template) SAME(complex_magnetic)         \
  /* material family */                                                                     \
  SAME(molecule) SAME(oxide) SAME(elemental_metal) SAME(alloy)
// clang-format on

TAVIK_VOCABULARY(Label, TAVIK_LABELS)

// clang-format off
/// What a label decides, and the words by which the evidence reports it.
#define TAVIK_DECISIONS(SAME, AS)                   \
  AS(structure_mode, "structure mode=")             \
  AS(structure_archetype, "structure archetype=")   \
  AS(electronic_class, "electronic class=")         \
  AS(correlation_class, "correlation class=")       \
  AS(magnetic_class, "magnetic class=")             \
  AS(material_family, "material family=")
// clang-format on

TAVIK_VOCABULARY(Decision, TAVIK_DECISIONS)

/// What a classifier answered, or a function in its place.
using Verdict = host::Recognised<Label>;

}  // namespace tavik::characterization
