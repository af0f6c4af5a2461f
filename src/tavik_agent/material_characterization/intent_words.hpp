// The words that a query intent may hold and that the rules know. "" stands for a missing one.
#pragma once

#include "host/recognised.hpp"

namespace tavik::characterization {

// clang-format off
#define TAVIK_INTENT_WORDS(SAME, AS)                                          \
  AS(none, "")                                                                \
  /* correlation */                                                           \
  AS(dft_plus_u, "dft+u") SAME(hybrid) SAME(plain_dft)                        \
  /* magnetism */                                                             \
  SAME(nonmagnetic) SAME(ferromagnetic) SAME(antiferromagnetic)               \
  SAME(ferrimagnetic) AS(non_collinear, "non-collinear")                      \
  /* complexity: for all of these, heuristics are to hold back */             \
  SAME(simple) SAME(tutorial) SAME(minimal) SAME(basic)
// clang-format on

TAVIK_VOCABULARY(IntentWord, TAVIK_INTENT_WORDS)

/// A field of the intent: one of the words, or whatever else stands there.
using IntentField = host::Recognised<IntentWord>;

}  // namespace tavik::characterization
