// Tables that map a lower-case phrase to a formula or a symbol, and the search for their phrases.
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string_view>

#include "host/text.hpp"
#include "host/value.hpp"
#include "text/phrase_index.hpp"

namespace tavik::characterization {

/// Receives what a phrase stands for; answers whether to go on.
using PhraseVisitor = std::function<bool(const host::Value& meaning)>;

/// The module's own tables, with one index over the phrases of both: a text is searched once. A
/// mapping that may change, or that has phrases which are no plain strings, stays out of the index.
class PhraseTables {
 public:
  enum Which { formula_aliases, element_names };

  PhraseTables(const host::Value& formula_aliases, const host::Value& element_names);

  /// Visits the rows whose phrase occurs in the text, in the order of the table.
  void for_each_match(Which which, host::Text& text, const PhraseVisitor& visit) const;

  /// Calls action(value) for every host object that it holds.
  template <class Action>
  void for_each_held(Action action) {
    for (Table& table : tables_) {
      action(table.mapping);
      action(table.meanings);
    }
  }

 private:
  struct Table {
    host::Value mapping;
    host::Value meanings;  ///< a tuple of what the indexed phrases stand for, row by row
    std::size_t first_row = 0;
    std::size_t end_row = 0;
  };

  static Table read(const host::Value& mapping, text::Phrases& phrases);

  std::array<Table, 2> tables_;
  std::optional<text::PhraseIndex> index_;
};

/// The same search in any mapping as it is now, row by row.
void for_each_match(const host::Value& mapping, host::Text& text, const PhraseVisitor& visit);

}  // namespace tavik::characterization
