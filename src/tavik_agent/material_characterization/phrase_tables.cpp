// The module's own tables are searched through an index. Making it takes three milliseconds, more
// than all the rest of loading the module, so it is made in the first search. A table that was put
// in their place may change at any time, so its rows are read anew in each search.
#include "material_characterization/phrase_tables.hpp"

#include <string>

#include "host/objects.hpp"
#include "host/strings.hpp"

namespace tavik::characterization {

using host::Iterator;
using host::Text;
using host::Utf8;
using host::Value;

namespace {

std::string between_blanks(std::string_view words) {
  std::string padded(1, ' ');
  return padded.append(words).append(1, ' ');
}

}  // namespace

PhraseTables::Table PhraseTables::read(const Value& mapping, text::Phrases& phrases) {
  Table table;
  table.mapping = mapping.another();
  if (!host::is_read_only_mapping(mapping)) return table;
  const Value rows = host::call_method(mapping, "copy");
  const auto is_plain = [](const Value& phrase) { return host::is_exact_string(phrase); };
  if (!host::is_exact_dict(rows) || !host::all_keys(rows, is_plain)) return table;
  table.first_row = phrases.count();
  table.meanings = host::tuple_of_values(rows);
  host::all_keys(rows, [&](const Value& phrase) {
    phrases.add(Utf8(phrase).view());
    return true;
  });
  table.end_row = phrases.count();
  return table;
}

PhraseTables::PhraseTables(const Value& aliases, const Value& names) {
  text::Phrases phrases;
  tables_[formula_aliases] = read(aliases, phrases);
  tables_[element_names] = read(names, phrases);
  index_.emplace(std::move(phrases));
}

void PhraseTables::for_each_match(Which which, Text& text, const PhraseVisitor& visit) const {
  const Table& table = tables_[which];
  if (!table.meanings) return characterization::for_each_match(table.mapping, text, visit);
  if (index_->is_too_short(text.lowered())) return;
  for (const text::PhraseIndex::Row row : text.phrases(*index_)) {
    if (row < table.first_row || row >= table.end_row) continue;
    if (!visit(host::item(table.meanings, row - table.first_row))) return;
  }
}

void for_each_match(const Value& mapping, Text& given, const PhraseVisitor& visit) {
  const std::string text = between_blanks(given.phrase_context());
  Iterator rows(host::items(mapping));
  while (const Value row = rows.next()) {
    const auto [phrase, meaning] = host::unpack_pair(row);
    const std::string sought = between_blanks(Utf8(host::text_form(phrase)).view());
    if (text.find(sought) != std::string::npos && !visit(meaning)) return;
  }
}

}  // namespace tavik::characterization
