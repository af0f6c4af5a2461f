// What is simulated, by structure: the mode from the step's own parameters (the text only when they
// say nothing), and the finer archetype from the user's own words, query and structure description
// (the combined text only when there are none).
#include <string>

#include "material_characterization/intent.hpp"
#include "text/keyword_scan.hpp"

namespace tavik::characterization {
namespace {

using text::Group;

bool has_lattice(const Module& module, const Fields& step_params) {
  const Value domain = step_params.get(module, InputKey::domain);
  return module.is_mapping(domain) && !module.read(domain, InputKey::latvec).is_null();
}

bool is_written(const Value& value) {
  return host::is_string(value) && !host::is_empty(host::strip(value));
}

/// The structure description, or "" when there is no intent.
Value description_in(const Module& module, const Fields& query_intent) {
  if (query_intent.is_empty()) return host::empty_string();
  return intent_text(module, query_intent, InputKey::structure_description);
}

/// What the query alone mentions. Stripping can only change what the end of the text makes of a
/// keyword that ends in a blank, so a query without outer white space shares its own scan.
text::Mentions mentions_in_query(Text& combined_text, Text& query) {
  const std::string_view stripped = query.phrase_context();
  if (stripped.empty()) return combined_text.mentions();
  if (stripped.size() == query.lowered().size()) return query.mentions();
  return text::find_keywords(stripped, host::character_tables());
}

/// What the text that counts mentions.
text::Mentions authoritative_mentions(const Module& module, Text& combined_text, Text& query_text,
                                      const Fields& query_intent) {
  const host::Utf8 description(description_in(module, query_intent));
  host::WrittenForm query(query_text);
  if (description.view().empty()) return mentions_in_query(combined_text, *query);
  std::string words(query->lowered());
  words.append(" ").append(description.view());
  return text::find_keywords(text::strip(words, host::character_tables()),
                             host::character_tables());
}

}  // namespace

Label _structure_mode(const Module& module, const Fields& step_params, Text& combined_text) {
  const Value atom_block = step_params.get(module, InputKey::atom);
  if (module.is_mapping(atom_block)) {
    const Value xyz = module.read(atom_block, InputKey::xyz);
    if (is_written(xyz)) return Label::external_structure;
    if (!xyz.is_null() || !module.read(atom_block, InputKey::fracxyz).is_null()) {
      return has_lattice(module, step_params) ? Label::periodic_bulk : Label::molecule_or_cluster;
    }
  }
  return combined_text.mentions(Group::periodic_cell) ? Label::periodic_bulk : Label::unknown;
}

Label _structure_archetype(const Module& module, const Verdict& structure_mode, Text& combined_text,
                           Text& query_text, const Fields& query_intent) {
  const text::Mentions words =
      authoritative_mentions(module, combined_text, query_text, query_intent);
  if (words.has(Group::stm)) return Label::stm_sample_tip;
  if (words.has(Group::sample) && words.has(Group::tip)) return Label::stm_sample_tip;
  if (words.has(Group::layered_parent)) return Label::layered_parent_exfoliation;
  if (words.has(Group::zincblende)) return Label::zincblende;
  if (words.has(Group::graphene)) return Label::graphene_2d;
  if (words.has(Group::hbn)) return Label::hbn_2d;
  if (words.has(Group::tmd)) return Label::tmd_2d;
  if (words.has(Group::phosphorene)) return Label::phosphorene_2d;
  if (words.has(Group::mxene)) return Label::mxene_2d;
  if (words.has(Group::two_dimensional)) return Label::two_dimensional;
  if (words.has(Group::surface)) return Label::surface_slab;
  // Vacuum alone says little: a molecule has it too, and a bulk cue outweighs it.
  if (words.has(Group::vacuum) && structure_mode.is(Label::periodic_bulk) &&
      words.has(Group::slab_context) && !words.has(Group::bulk_cue)) {
    return Label::surface_slab;
  }
  return Label::unknown;
}

}  // namespace tavik::characterization
