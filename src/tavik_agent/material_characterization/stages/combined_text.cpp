// Joins what accompanies a planning step (query, findings, purpose, notes) into one text for the
// keyword classifiers and the prose scan. What cannot be read as text is left out.
#include <array>

#include "material_characterization/stages/characterization.hpp"
#include "material_characterization/state/invoke.hpp"

namespace tavik::characterization {
namespace {

void append_part(const ModuleState& module, const Object& fragments, const Object& part) {
  if (py::is_string(part)) {
    const Object stripped = py::strip(part);
    if (!py::is_empty(stripped)) py::append(fragments, stripped);
  } else if (py::is_list(part)) {
    py::for_each_stripped_text(part, [&](const Object& text) { py::append(fragments, text); });
  } else if (module.is_mapping(part)) {
    py::append(fragments, py::text_form(part));
  }
}

/// Whether there is plainly nothing that the query could be joined with, as in most calls.
bool stands_alone(const Characterization& call) {
  return call.inputs.findings.is_none() && !call.inputs.planner_manifest &&
         py::is_exact_string(call.inputs.query_text.value()) &&
         call.module.is_untouched(Global::_combined_text);
}

Object joined(const Characterization& call) {
  const ModuleState& module = call.module;
  const auto manifest_value = [&](InputKey key) {
    const Object& manifest = call.inputs.planner_manifest;
    return manifest ? module.read(manifest, key) : py::none();
  };
  const std::array<Object, 4> parts{
      call.inputs.query_text.value().new_ref(), py::list_of_items(call.inputs.findings),
      manifest_value(InputKey::purpose), manifest_value(InputKey::notes)};
  const Object combine = module.look_up(Global::_combined_text);
  if (combine.is_same(module.own(Global::_combined_text))) return _combined_text(module, parts);
  return py::call(combine, parts[0], parts[1], parts[2], parts[3]);
}

}  // namespace

Object _combined_text(const ModuleState& module, std::span<const Object> parts) {
  const Object fragments = py::new_list();
  for (const Object& part : parts) append_part(module, fragments, part);
  return py::join_with_blanks(fragments);
}

void join_texts(Characterization& call) {
  const Object& query = call.inputs.query_text.value();
  Object combined = stands_alone(call) ? py::strip(query) : joined(call);
  // When the query is the joined text, what is learnt of it is learnt once.
  if (!combined.is_same(query)) call.combined = &call.joined_text.emplace(std::move(combined));
}

}  // namespace tavik::characterization
