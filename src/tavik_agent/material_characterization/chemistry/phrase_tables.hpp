// Tables that map a lower-case phrase to a formula or a symbol, and the search for their phrases.
#pragma once

#include <array>
#include <functional>
#include <optional>

#include "py/text.hpp"
#include "text/phrase_index.hpp"

namespace tavik::characterization {

/// Receives what a phrase stands for; answers whether to go on.
using PhraseVisitor = std::function<bool(const py::Object& meaning)>;

/// The module's own tables, with one index over the phrases of both: a text is searched once. A
/// mapping that may change, or that has phrases which are no plain strings, stays out of the index.
class PhraseTables {
 public:
  enum Which { formula_aliases, element_names };

  PhraseTables(const py::Object& formula_aliases, const py::Object& element_names);

  /// Visits the rows whose phrase occurs in the text, in the order of the table.
  void for_each_match(Which which, py::Text& text, const PhraseVisitor& visit) const;

  /// Calls action(object) for every Python object that it holds.
  template <class Action>
  void for_each_held(Action action) {
    for (Table& table : tables_) {
      action(table.mapping);
      action(table.meanings);
    }
  }

 private:
  struct Table {
    py::Object mapping;
    py::Object meanings;  ///< a tuple of what the indexed phrases stand for, row by row
    std::size_t first_row = 0;
    std::size_t end_row = 0;
  };

  static Table read(const py::Object& mapping, text::Phrases& phrases);

  std::array<Table, 2> tables_;
  std::optional<text::PhraseIndex> index_;
};

/// The same search in any mapping as it is now, row by row.
void for_each_match(const py::Object& mapping, py::Text& text, const PhraseVisitor& visit);

}  // namespace tavik::characterization
