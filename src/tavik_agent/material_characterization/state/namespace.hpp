// The module's namespace, as the rules look names up in it: at the moment of each use, since
// whoever rebinds a name, a test say, changes what the next use reaches.
#pragma once

#include <atomic>
#include <cstdint>
#include <optional>

#include "material_characterization/vocabulary/vocabulary.hpp"
#include "py/watched_dict.hpp"

namespace tavik::characterization {

/// A bit for each name says whether it may have been bound anew; a dict watcher sets it. Such a
/// name, and every name when no watcher could be had, is looked up in the namespace each time, then
/// among the built-ins, as a Python function would.
class Namespace final : public py::DictListener {
 public:
  /// `names` is the dict of a module in which every Global is bound.
  explicit Namespace(py::Object names);

  /// What the name is bound to now; a NameError when it is not bound any more.
  py::Object look_up(Global name) const {
    return is_untouched(name) ? own_[name].new_ref() : look_up_in_dict(name);
  }
  /// What the name was bound to when the module was loaded.
  const py::Object& own(Global name) const { return own_[name]; }
  /// Whether the name is known to be bound to that. Asking runs no Python code.
  bool is_untouched(Global name) const {
    return (changed_.load(std::memory_order_acquire) & bit(name)) == 0;
  }

  /// Calls action(object) for every object that it holds.
  template <class Action>
  void for_each_held(Action action) {
    for (py::Object& object : own_) action(object);
    for (py::Object& string : strings_) action(string);
    action(builtins_);
    action(names_);
  }
  void will_change(const py::DictChange& change) noexcept override;

 private:
  static constexpr std::uint64_t bit(Global name) {
    return std::uint64_t{1} << static_cast<unsigned>(name);
  }
  static constexpr std::uint64_t every_name = ~std::uint64_t{0};
  static_assert(py::texts<Global>.size() < 64, "`changed_` has a bit for each name, and one more");

  py::Object look_up_in_dict(Global name) const;

  py::Object names_;
  py::Object builtins_;
  py::ByWord<Global> strings_;
  py::ByWord<Global> own_;
  /// A bit for each name that may be bound to something else. Once nothing can be told any more, it
  /// is `every_name` for good.
  std::atomic<std::uint64_t> changed_ = 0;
  std::optional<py::DictWatch> watch_;  ///< last, so that it goes before what it watches
};

}  // namespace tavik::characterization
