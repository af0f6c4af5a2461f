// Asking a table for the formula hint.
#include "material_characterization/formula_hint.hpp"

namespace tavik::characterization {

bool FormulaHint::ask(const Module& module, Global table) const {
  const Current current = module.look_up(table);
  const bool may_be_kept =
      current.is_own() && host::is_exact_frozen_set(current) && host::is_exact_string(value_);
  if (!may_be_kept) return host::contains(current, value_);
  const bool is_in = host::is_empty(value_) ? module.own_table_holds_empty_string(table)
                                            : host::contains(current, value_);
  known_ |= bit(table);
  if (is_in) holding_ |= bit(table);
  return is_in;
}

}  // namespace tavik::characterization
