// The module's own tables are searched through an index made when the module is loaded. A table
// that was put in their place may change at any time, so its rows are read anew in each search.
#include "material_characterization/phrase_table.hpp"

#include <string>

#include "host/objects.hpp"
#include "host/strings.hpp"

namespace tavik::characterization {

using host::Iterator;
using host::Utf8;
using host::Value;

namespace {

std::string between_blanks(std::string_view words) {
  std::string padded(1, ' ');
  return padded.append(words).append(1, ' ');
}

}  // namespace

std::optional<PhraseTable> PhraseTable::index(const Value& mapping) {
  if (!host::is_read_only_mapping(mapping)) return std::nullopt;
  PhraseTable table;
  Iterator rows(host::items(mapping));
  while (const Value row = rows.next()) {
    auto [phrase, meaning] = host::unpack_pair(row);
    if (!host::is_exact_string(phrase)) return std::nullopt;
    table.index_.add(Utf8(phrase).view(), table.meanings_.size());
    table.meanings_.push_back(std::move(meaning));
  }
  return table;
}

void PhraseTable::for_each_match(std::string_view words, const PhraseVisitor& visit) const {
  for (const std::size_t row : index_.find(words)) {
    if (!visit(meanings_[row])) return;
  }
}

void for_each_match(const Value& mapping, std::string_view words, const PhraseVisitor& visit) {
  const std::string text = between_blanks(words);
  Iterator rows(host::items(mapping));
  while (const Value row = rows.next()) {
    const auto [phrase, meaning] = host::unpack_pair(row);
    const std::string sought = between_blanks(Utf8(host::text_form(phrase)).view());
    if (text.find(sought) != std::string::npos && !visit(meaning)) return;
  }
}

}  // namespace tavik::characterization
