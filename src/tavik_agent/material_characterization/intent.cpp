// Normalising the fields of the intent, and telling the words that the rules know.
#include "material_characterization/intent.hpp"

#include <algorithm>

#include "host/strings.hpp"

namespace tavik::characterization {
namespace {

Value normalised(const Value& value) { return host::lower(host::strip(host::text_form(value))); }

IntentField recognised(const Module& module, Value text) {
  if (!host::is_exact_ascii(text)) return IntentField(std::move(text));
  constexpr auto& words = host::Indexed<IntentWord>::texts;
  const auto found = std::ranges::find(words, host::ascii_view(text));
  if (found == words.end()) return IntentField(std::move(text));
  const auto word = static_cast<IntentWord>(found - words.begin());
  return {word, module.intent_word(word)};
}

}  // namespace

Value intent_text(const Module& module, const Fields& query_intent, InputKey key) {
  const Value value = query_intent.get(module, key);
  return host::is_empty(value) ? host::empty_string() : normalised(value);
}

IntentField intent_field(const Module& module, const Fields& query_intent, InputKey key) {
  const Value value = query_intent.get(module, key);
  if (host::is_empty(value)) return {IntentWord::none, module.intent_word(IntentWord::none)};
  return recognised(module, normalised(value));
}

}  // namespace tavik::characterization
