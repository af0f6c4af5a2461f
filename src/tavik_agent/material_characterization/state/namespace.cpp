// Keeping note of the names that were bound anew.
#include "material_characterization/state/namespace.hpp"

#include <algorithm>

#include "py/calls.hpp"
#include "py/containers.hpp"

namespace tavik::characterization {
namespace {

std::optional<Global> changed_name(const py::DictChange& change) {
  const auto is_it = [&](Global name) { return change.is_about(text_of(name)); };
  const auto found = std::ranges::find_if(py::all_words<Global>, is_it);
  return found == py::all_words<Global>.end() ? std::nullopt : std::optional(*found);
}

}  // namespace

Namespace::Namespace(py::Object names)
    : names_(std::move(names)), builtins_(py::builtins()), strings_(py::interned<Global>()) {
  watch_.emplace(names_, *this);
  for (const Global name : py::all_words<Global>) own_[name] = look_up_in_dict(name);
  if (!watch_->is_active() || !py::all_exact_strings(py::keys_of(names_))) changed_ = every_name;
}

py::Object Namespace::look_up_in_dict(Global name) const {
  return py::look_up_global(names_, builtins_, strings_[name]);
}

// A name that is about to be bound to the module's own object again is taken for it from here on;
// any other is looked up. Once a change cannot be told, nothing can be told any more.
void Namespace::will_change(const py::DictChange& change) noexcept {
  if (change.key == nullptr) changed_ = every_name;
  if (changed_ == every_name) return;
  const auto name = changed_name(change);
  if (!name) return;
  if (change.new_value == own_[*name].get()) {
    changed_ &= ~bit(*name);
  } else {
    changed_ |= bit(*name);
  }
}

}  // namespace tavik::characterization
