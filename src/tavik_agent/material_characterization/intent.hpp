// Reading the structured intent that a language model extracted from the query, and the few values
// of it that more than one stage must understand alike.
#pragma once

#include "host/objects.hpp"
#include "host/strings.hpp"
#include "material_characterization/functions.hpp"

namespace tavik::characterization {

/// A free-text field: its text form, stripped and in lower case; "" when it is missing or empty.
inline Value intent_field(const Module& module, const Fields& query_intent, InputKey key) {
  const Value value = query_intent.get(module, key);
  if (host::is_empty(value)) return host::empty_string();
  return host::lower(host::strip(host::text_form(value)));
}

/// Whether the complexity marks a request for which heuristics are to hold back.
inline bool is_simple_request(const Value& intent_complexity) {
  return host::equals_any(intent_complexity, {"simple", "tutorial", "minimal", "basic"});
}

}  // namespace tavik::characterization
