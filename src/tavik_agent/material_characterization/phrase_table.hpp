// Tables that map a lower-case phrase to a formula or a symbol, and the search for their phrases.
#pragma once

#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "host/value.hpp"
#include "text/phrase_index.hpp"

namespace tavik::characterization {

/// Receives what a phrase stands for; answers whether to go on.
using PhraseVisitor = std::function<bool(const host::Value& meaning)>;

/// A lasting phrase table with an index over its phrases.
class PhraseTable {
 public:
  /// Nothing for a mapping that may change, or whose phrases are not plain strings.
  static std::optional<PhraseTable> index(const host::Value& mapping);

  /// Visits the rows whose phrase occurs in `words`, in the order of the table.
  void for_each_match(std::string_view words, const PhraseVisitor& visit) const;

  std::vector<host::Value>& held() { return meanings_; }

 private:
  text::PhraseIndex index_;
  std::vector<host::Value> meanings_;
};

/// The same search in any mapping as it is now, row by row.
void for_each_match(const host::Value& mapping, std::string_view words, const PhraseVisitor& visit);

}  // namespace tavik::characterization
