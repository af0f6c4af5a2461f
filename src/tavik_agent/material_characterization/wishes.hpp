// What a request can ask for: an energy unit and a spin treatment. "" stands for neither.
#pragma once

#include "host/vocabulary.hpp"

namespace tavik::characterization {

// clang-format off
#define TAVIK_WISHES(SAME, AS)                        \
  AS(none, "")                                        \
  AS(electronvolt, "eV") AS(hartree, "Hartree")       \
  SAME(collinear) AS(non_collinear, "non-collinear")
// clang-format on

TAVIK_VOCABULARY(Wish, TAVIK_WISHES)

}  // namespace tavik::characterization
