// The structured intent that a language model extracted from the query, as the rules read it.
#pragma once

#include "material_characterization/functions.hpp"

namespace tavik::characterization {

/// A free-text field: its text form, stripped and in lower case; "" when it is missing or empty.
inline Object intent_field(const ModuleState& module, const Object& query_intent, InputKey key) {
  const Object value = module.read(query_intent, key);
  return py::is_empty(value) ? py::empty_string() : py::lower(py::strip(py::text_form(value)));
}

/// Whether the intent's complexity marks a request for which heuristics are to hold back.
inline bool is_simple_request(const Object& intent_complexity) {
  return equals(intent_complexity, IntentComplexity::simple) ||
         equals(intent_complexity, IntentComplexity::tutorial) ||
         equals(intent_complexity, IntentComplexity::minimal) ||
         equals(intent_complexity, IntentComplexity::basic);
}

}  // namespace tavik::characterization
