// The formula hint, with what was learnt of it. Four classifiers ask nine times whether one of
// three tables holds it; each question takes the host 150 instructions, an answer that is kept 30.
#pragma once

#include <array>

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
    const Current current = module.look_up(table);
    const bool is_constant =
        current.is_own() && host::is_exact_frozen_set(current) && host::is_exact_string(value_);
    if (!is_constant) return host::contains(current, value_);
    Answer& answer = answers_[static_cast<std::size_t>(table) - first_table];
    if (answer == Answer::none) {
      answer = host::contains(current, value_) ? Answer::yes : Answer::no;
    }
    return answer == Answer::yes;
  }

  /// hint in SEMICONDUCTOR_FORMULAS.union(INSULATOR_FORMULAS)
  bool is_semiconductor_or_insulator(const Module& module) const {
    const auto insulators = [&] { return module.look_up(Global::INSULATOR_FORMULAS); };
    const Current semiconductors = module.look_up(Global::SEMICONDUCTOR_FORMULAS);
    if (host::is_exact_set(semiconductors) && host::is_exact_set(insulators())) {
      return is_in(module, Global::SEMICONDUCTOR_FORMULAS) ||
             is_in(module, Global::INSULATOR_FORMULAS);
    }
    return host::union_contains(semiconductors, insulators, value_);
  }

 private:
  enum class Answer : std::uint8_t { none, no, yes };
  static constexpr auto first_table = static_cast<std::size_t>(Global::SEMICONDUCTOR_FORMULAS);
  static constexpr auto last_table = static_cast<std::size_t>(Global::DFTU_SENSITIVE_FORMULAS);

  host::Value value_;
  mutable std::array<Answer, last_table - first_table + 1> answers_{};
};

}  // namespace tavik::characterization
