// The formula hint, with what was learnt of it. Four classifiers ask nine times whether one of
// three tables holds it; each question takes the host 150 instructions, an answer that is kept ten.
#pragma once

#include "host/objects.hpp"
#include "material_characterization/module.hpp"

namespace tavik::characterization {

class FormulaHint {
 public:
  FormulaHint() = default;
  explicit FormulaHint(host::Value value) : value_(std::move(value)) {}

  const host::Value& value() const { return value_; }

  /// hint in TABLE. Of the module's own tables the answer is kept, as they cannot change.
  bool is_in(const Module& module, Global table) const {
    const bool is_known = module.is_untouched() && (known_ & bit(table)) != 0;
    return is_known ? (holding_ & bit(table)) != 0 : ask(module, table);
  }

  /// hint in SEMICONDUCTOR_FORMULAS.union(INSULATOR_FORMULAS)
  bool is_semiconductor_or_insulator(const Module& module) const {
    const auto insulators = [&] { return module.look_up(Global::INSULATOR_FORMULAS); };
    const Current semiconductors = module.look_up(Global::SEMICONDUCTOR_FORMULAS);
    if (host::is_exact_string(value_) && host::is_exact_set(semiconductors) &&
        host::is_exact_set(insulators())) {
      return is_in(module, Global::SEMICONDUCTOR_FORMULAS) ||
             is_in(module, Global::INSULATOR_FORMULAS);
    }
    return host::union_contains(semiconductors, insulators, value_);
  }

 private:
  static constexpr unsigned bit(Global table) { return 1U << static_cast<unsigned>(table); }
  bool ask(const Module& module, Global table) const;

  host::Value value_;
  mutable unsigned known_ = 0;    ///< a bit for each table of which the answer is kept
  mutable unsigned holding_ = 0;  ///< and for each that holds the hint
};

}  // namespace tavik::characterization
