// Joins what accompanies a planning step (query, findings, purpose, notes) into one text for the
// keyword classifiers and the prose scan. What cannot be read as text is left out.
#include <array>

#include "host/objects.hpp"
#include "host/strings.hpp"
#include "material_characterization/characterization.hpp"

namespace tavik::characterization {
namespace {

void append_unless_blank(host::Values& fragments, const Value& string) {
  Value stripped = host::strip(string);
  if (!host::is_empty(stripped)) fragments.push_back(std::move(stripped));
}

void append_part(const Module& module, host::Values& fragments, const Value& part) {
  if (host::is_string(part)) {
    append_unless_blank(fragments, part);
  } else if (host::is_list(part)) {
    host::Iterator items(part);
    while (const Value item = items.next()) append_unless_blank(fragments, host::text_form(item));
  } else if (module.is_mapping(part)) {
    fragments.push_back(host::text_form(part));
  }
}

Value combine(const Module& module, const std::array<Value, 4>& parts) {
  const Current current = module.look_up(Global::_combined_text);
  if (current.is_own()) return _combined_text(module, parts);
  return host::call(current.value(), parts[0], parts[1], parts[2], parts[3]);
}

}  // namespace

Value _combined_text(const Module& module, std::span<const Value> parts) {
  host::Values fragments;
  for (const Value& part : parts) append_part(module, fragments, part);
  return host::join_with_blanks(fragments);
}

void join_texts(Characterization& call) {
  Value findings = host::list_of(call.findings);
  const auto read = [&](InputKey key) {
    return call.planner_manifest ? call.module.read(call.planner_manifest, key) : Value::null();
  };
  Value purpose = read(InputKey::purpose);
  Value notes = read(InputKey::notes);
  const std::array parts{call.query_text.value().another(), std::move(findings), std::move(purpose),
                         std::move(notes)};
  Value joined = combine(call.module, parts);
  // A query that stands alone is the joined text, and what is learnt of it is learnt once.
  if (joined.is_same(call.query_text.value())) return;
  call.combined = &call.joined_text.emplace(std::move(joined), call.query_text);
}

}  // namespace tavik::characterization
