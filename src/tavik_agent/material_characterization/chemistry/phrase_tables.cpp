// The module's own tables are searched through an index. Making it takes longer than all the rest
// of loading the module, so it is made in the first search. A table that was put in their place may
// change at any time, so its rows are read anew in each search.
#include "material_characterization/chemistry/phrase_tables.hpp"

#include <string>

#include "py/containers.hpp"

namespace tavik::characterization {

using py::Object;

namespace {

std::string between_blanks(std::string_view words) {
  return std::string(" ").append(words).append(" ");
}

/// The rows of a mapping that will not change and has plain strings for phrases, as a dict of its
/// own; no object for any other mapping.
Object indexable_copy(const Object& mapping) {
  if (!py::is_read_only_mapping(mapping)) return {};
  Object rows = py::call_method(mapping, "copy");
  const bool is_plain = py::is_exact_dict(rows) && py::all_exact_strings(py::keys_of(rows));
  return is_plain ? std::move(rows) : Object();
}

}  // namespace

PhraseTables::Table PhraseTables::read(const Object& mapping, text::Phrases& phrases) {
  Table table;
  table.mapping = mapping.new_ref();
  const Object rows = indexable_copy(mapping);
  if (!rows) return table;
  table.first_row = phrases.count();
  py::Iterator walk(py::keys_of(rows));
  while (const Object phrase = walk.next()) phrases.add(py::Utf8(phrase).view());
  table.end_row = phrases.count();
  table.meanings = py::values_of(rows);
  return table;
}

PhraseTables::PhraseTables(const Object& aliases, const Object& names) {
  text::Phrases phrases;
  tables_[formula_aliases] = read(aliases, phrases);
  tables_[element_names] = read(names, phrases);
  index_.emplace(std::move(phrases));
}

void PhraseTables::for_each_match(Which which, py::Text& text, const PhraseVisitor& visit) const {
  const Table& table = tables_[which];
  if (!table.meanings) return characterization::for_each_match(table.mapping, text, visit);
  for (const text::PhraseIndex::Row row : text.phrases(*index_)) {
    if (row < table.first_row || row >= table.end_row) continue;
    if (!visit(py::item(table.meanings, row - table.first_row))) return;
  }
}

void for_each_match(const Object& mapping, py::Text& given, const PhraseVisitor& visit) {
  const std::string text = between_blanks(given.stripped());
  py::Iterator rows(py::items(mapping));
  while (const Object row = rows.next()) {
    const auto [phrase, meaning] = py::unpack_pair(row);
    const std::string sought = between_blanks(py::Utf8(py::text_form(phrase)).view());
    if (text.find(sought) != std::string::npos && !visit(meaning)) return;
  }
}

}  // namespace tavik::characterization
