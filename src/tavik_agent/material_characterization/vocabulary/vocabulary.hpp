// The words that the module shares with Python: class labels, words of the intent, keys of the
// record and of the inputs, names of the module's namespace. Each set is an enumeration, generated
// from typing/characterization_types.py and the stub beside it, so a label that is misspelt, or
// returned by the wrong classifier, does not compile.
#pragma once

#include "generated/words.hpp"
#include "py/by_word.hpp"
#include "py/values.hpp"

namespace tavik::characterization {

using py::text_of;

/// value == word. A value may be anything: a classifier that was replaced answers as it likes.
template <class Word>
  requires std::is_enum_v<Word>
bool equals(const py::Object& value, Word word) {
  return py::equals(value, text_of(word));
}

}  // namespace tavik::characterization
