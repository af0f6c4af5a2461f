// Reading the structured intent that a language model extracted from the query.
#pragma once

#include "material_characterization/functions.hpp"

namespace tavik::characterization {

/// A free-text field: its text form, stripped and in lower case; "" when it is missing or empty.
Value intent_text(const Module& module, const Fields& query_intent, InputKey key);

/// The same, as a word if it is one.
IntentField intent_field(const Module& module, const Fields& query_intent, InputKey key);

/// Whether the complexity marks a request for which heuristics are to hold back.
inline bool is_simple_request(const IntentField& intent_complexity) {
  return intent_complexity.is(IntentWord::simple) || intent_complexity.is(IntentWord::tutorial) ||
         intent_complexity.is(IntentWord::minimal) || intent_complexity.is(IntentWord::basic);
}

}  // namespace tavik::characterization
