// The module's own tables are searched through an index. Making it takes longer than all the rest
// of loading the module, so it is made in the first search. A table that was put in their place may
// change at any time, so its rows are read anew in each search.
#include "material_characterization/chemistry/phrase_tables.hpp"

#include <string>

#include "py/containers.hpp"

namespace tavik::characterization {
namespace {

std::string between_blanks(std::string_view words) {
  return std::string(" ").append(words).append(" ");
}

}  // namespace

PhraseTables::Table PhraseTables::read(const py::Object& mapping, text::Phrases& phrases) {
  Table table;
  table.mapping = mapping.new_ref();
  if (!py::is_read_only_mapping(mapping)) return table;
  const py::Object rows = py::call_method(mapping, "copy");
  if (!py::is_exact_dict(rows)) return table;
  const py::Object keys = py::keys_of(rows);
  text::Phrases more = phrases;
  py::Iterator walk(keys);
  while (const py::Object phrase = walk.next()) {
    if (!py::is_exact_string(phrase)) return table;
    more.add(py::Utf8(phrase).view());
  }
  table.first_row = std::exchange(phrases, std::move(more)).count();
  table.end_row = phrases.count();
  table.meanings = py::values_of(rows);
  return table;
}

PhraseTables::PhraseTables(const py::Object& aliases, const py::Object& names) {
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

void for_each_match(const py::Object& mapping, py::Text& given, const PhraseVisitor& visit) {
  const std::string text = between_blanks(given.stripped());
  py::Iterator rows(py::items(mapping));
  while (const py::Object row = rows.next()) {
    const auto [phrase, meaning] = py::unpack_pair(row);
    const std::string sought = between_blanks(py::Utf8(py::text_form(phrase)).view());
    if (text.find(sought) != std::string::npos && !visit(meaning)) return;
  }
}

}  // namespace tavik::characterization
