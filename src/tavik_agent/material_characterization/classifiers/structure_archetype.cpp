// The kind of structure that the user speaks of, finer than the structure mode: from the user's own
// words, query and structure description, and from the combined text only when there are none.
#include <string>

#include "material_characterization/classifiers/intent.hpp"
#include "material_characterization/functions.hpp"

namespace tavik::characterization {
namespace {

using text::Group;

/// The structure description, or "" when there is no intent.
Object description_in(const ModuleState& module, const Object& query_intent) {
  if (py::is_empty(query_intent)) return py::empty_string();
  return intent_field(module, query_intent, InputKey::structure_description);
}

/// What the query, without outer white space, mentions; what the combined text does when the query
/// is blank.
text::Mentions mentions_in_query(Text& combined_text, Text& query) {
  const std::string_view stripped = query.stripped();
  if (stripped.empty()) return combined_text.mentions();
  if (stripped.size() == query.lowered().size()) return query.mentions();
  return text::find_keywords(stripped, py::character_tables);
}

/// What the text that counts mentions.
text::Mentions authoritative_mentions(const ModuleState& module, Text& combined_text,
                                      Text& query_text, const Object& query_intent) {
  const py::Utf8 description(description_in(module, query_intent));
  py::TextForm query(query_text);
  if (description.view().empty()) return mentions_in_query(combined_text, *query);
  std::string words(query->lowered());
  words.append(" ").append(description.view());
  return text::find_keywords(text::strip(words, py::character_tables), py::character_tables);
}

}  // namespace

StructureArchetype _structure_archetype(const ModuleState& module, const Object& structure_mode,
                                        Text& combined_text, Text& query_text,
                                        const Object& query_intent) {
  using enum StructureArchetype;
  const text::Mentions words =
      authoritative_mentions(module, combined_text, query_text, query_intent);
  if (words.has(Group::stm)) return stm_sample_tip;
  if (words.has(Group::sample) && words.has(Group::tip)) return stm_sample_tip;
  if (words.has(Group::layered_parent)) return layered_parent_exfoliation;
  if (words.has(Group::zincblende)) return zincblende;
  if (words.has(Group::graphene)) return graphene_2d;
  if (words.has(Group::hbn)) return hbn_2d;
  if (words.has(Group::tmd)) return tmd_2d;
  if (words.has(Group::phosphorene)) return phosphorene_2d;
  if (words.has(Group::mxene)) return mxene_2d;
  if (words.has(Group::two_dimensional)) return two_dimensional;
  if (words.has(Group::surface)) return surface_slab;
  // Vacuum alone says little: a molecule has it too, and a bulk cue outweighs it.
  if (words.has(Group::vacuum) && equals(structure_mode, StructureMode::periodic_bulk) &&
      words.has(Group::slab_context) && !words.has(Group::bulk_cue)) {
    return surface_slab;
  }
  return unknown;
}

}  // namespace tavik::characterization
