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

bool has_own_combined_text(const Module& module) { return module.has_own(Global::_combined_text); }

/// Whether reading a mapping runs no host code that could change the findings meanwhile.
bool is_plain(const host::Lent& mapping) {
  const auto has_string = [](const Value& key, const Value&) { return host::is_exact_string(key); };
  return !mapping || (host::is_exact_dict(mapping) && host::all_entries(mapping, has_string));
}

/// The findings as `_combined_text` is given them: a list of its own, unless nobody could tell.
Value given_findings(const Characterization& call) {
  const bool are_plain = call.findings.is_null() || host::is_list_of_exact_strings(call.findings);
  const bool can_be_shared = are_plain && host::is_exact_string(call.query_text.value()) &&
                             is_plain(call.planner_manifest) && has_own_combined_text(call.module);
  return can_be_shared ? call.findings.another() : host::list_of(call.findings);
}

Value combine(const Module& module, const std::array<Value, 4>& parts) {
  if (has_own_combined_text(module)) return _combined_text(module, parts);
  return host::call(module.look_up(Global::_combined_text).value(), parts[0], parts[1], parts[2],
                    parts[3]);
}

Value combine_all(const Characterization& call) {
  Value findings = given_findings(call);
  const auto read = [&](InputKey key) {
    return call.planner_manifest ? call.module.read(call.planner_manifest, key) : Value::null();
  };
  Value purpose = read(InputKey::purpose);
  Value notes = read(InputKey::notes);
  return combine(call.module, {call.query_text.value().another(), std::move(findings),
                               std::move(purpose), std::move(notes)});
}

/// Whether there is nothing that the query could be joined with. Most calls are such, and are
/// spared 250 instructions.
bool stands_alone(const Characterization& call) {
  return call.findings.is_null() && !call.planner_manifest &&
         host::is_exact_string(call.query_text.value()) && has_own_combined_text(call.module);
}

}  // namespace

Value _combined_text(const Module& module, std::span<const Value> parts) {
  host::Values fragments;
  for (const Value& part : parts) append_part(module, fragments, part);
  return host::join_with_blanks(fragments);
}

void join_texts(Characterization& call) {
  const Value& query = call.query_text.value();
  Value joined = stands_alone(call) ? host::strip(query) : combine_all(call);
  // When the query is the joined text, what is learnt of it is learnt once.
  if (joined.is_same(query)) return;
  call.combined = &call.joined_text.emplace(std::move(joined), call.query_text);
}

}  // namespace tavik::characterization
