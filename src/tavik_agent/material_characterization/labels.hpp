// The class labels, one group a classifier. A label that two classifiers use stands in the first.
#pragma once

#include <optional>

#include "host/objects.hpp"
#include "host/vocabulary.hpp"

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

constexpr std::string_view text_of(Label label) { return host::Indexed<Label>::text(label); }

/// What a classifier answered. The module's own labels are told apart by their numbers, not by
/// their letters, and their strings stay with the module; whatever a function in a classifier's
/// place returned is compared by the host.
class Verdict {
 public:
  Verdict() = default;
  explicit Verdict(host::Value value) : other_(std::move(value)) {}
  Verdict(Label label, const host::Value& string) : string_(&string), own_(label) {}

  const host::Value& value() const { return own_ ? *string_ : other_.value(); }
  /// The number of one of the module's own labels.
  std::optional<Label> own() const { return own_; }

 private:
  const host::Value* string_ = nullptr;
  host::Seldom other_;
  std::optional<Label> own_;
};

/// verdict == label
inline bool is(const Verdict& verdict, Label label) {
  return verdict.own() ? *verdict.own() == label : host::equals(verdict.value(), text_of(label));
}

}  // namespace tavik::characterization
