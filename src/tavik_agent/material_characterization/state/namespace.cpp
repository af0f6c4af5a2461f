// Looking names up as Python does, and keeping note of those that were bound anew.
#include "material_characterization/state/namespace.hpp"

#include <algorithm>

#include "py/calls.hpp"
#include "py/containers.hpp"

namespace tavik::characterization {
namespace {

/// Which name a string is, if any.
std::optional<Global> find_name(PyObject* string) {
  const auto is_it = [&](Global name) {
    const std::string_view text = text_of(name);
    return PyUnicode_EqualToUTF8AndSize(string, text.data(), static_cast<Py_ssize_t>(text.size()));
  };
  const auto found = std::ranges::find_if(py::all_words<Global>, is_it);
  return found == py::all_words<Global>.end() ? std::nullopt : std::optional(*found);
}

}  // namespace

Namespace::Namespace(py::Object names)
    : names_(std::move(names)),
      builtins_(py::Object::borrow(PyEval_GetBuiltins())),
      strings_(py::interned<Global>()) {
  watch_.emplace(names_, *this);
  for (const Global name : py::all_words<Global>) own_[name] = look_up_in_dict(name);
  if (!watch_->is_active() || !py::all_exact_strings(py::keys_of(names_))) changed_ = every_name;
}

py::Object Namespace::look_up_in_dict(Global name) const {
  PyObject* found = nullptr;
  if (py::check(PyDict_GetItemRef(names_.get(), strings_[name].get(), &found)) == 0 &&
      py::check(PyMapping_GetOptionalItem(builtins_.get(), strings_[name].get(), &found)) == 0) {
    PyErr_Format(PyExc_NameError, "name '%U' is not defined", strings_[name].get());
    py::throw_with("name", strings_[name]);
  }
  return py::Object::steal(found);
}

// Python reports a change right before it makes it. A name that is about to be bound to the
// module's own object again is taken for it from here on; any other is looked up. A key that is no
// plain string may equal any name by its own account, and then nothing can be told any more.
void Namespace::will_change(PyDict_WatchEvent event, PyObject* key, PyObject* new_value) noexcept {
  const bool is_about_one_key = event == PyDict_EVENT_ADDED || event == PyDict_EVENT_MODIFIED ||
                                event == PyDict_EVENT_DELETED;
  if (!is_about_one_key || !PyUnicode_CheckExact(key)) {
    changed_ = every_name;
    return;
  }
  const auto name = find_name(key);
  if (!name || changed_ == every_name) return;
  if (event == PyDict_EVENT_MODIFIED && new_value == own_[*name].get()) {
    changed_ &= ~bit(*name);
  } else {
    changed_ |= bit(*name);
  }
}

}  // namespace tavik::characterization
