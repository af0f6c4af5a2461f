// A watcher's callback is given the dict and nothing of ours. So each watch puts a capsule that
// leads to it into the dict that Python keeps for the data of extensions in an interpreter, out of
// reach of Python code, and the callback looks through these. It runs within the change of a dict,
// so it must not wait for a lock that lets go of others: without the global lock nothing is
// watched.
#include "py/watched_dict.hpp"

namespace tavik::py {
namespace {

constexpr char capsule_name[] = "tavik_agent.material_characterization.DictWatch";

#ifdef Py_GIL_DISABLED
constexpr bool has_global_lock = false;
#else
constexpr bool has_global_lock = true;
#endif

/// The interpreter's dict for the data of extensions; no object when Python cannot make it.
PyObject* extension_data() { return PyInterpreterState_GetDict(PyInterpreterState_Get()); }

/// Keeps the error that is set meanwhile, and drops any other.
class KeepingError {
 public:
  KeepingError() : error_(PyErr_GetRaisedException()) {}
  KeepingError(const KeepingError&) = delete;
  KeepingError& operator=(const KeepingError&) = delete;
  ~KeepingError() { PyErr_SetRaisedException(error_); }

 private:
  PyObject* error_;
};

}  // namespace

void DictWatch::start() {
  PyObject* const data = has_global_lock ? extension_data() : nullptr;
  if (data == nullptr) return;
  watcher_ = PyDict_AddWatcher(notify);
  if (watcher_ < 0) return PyErr_Clear();  // all of them are taken
  const Object capsule = Object::steal(PyCapsule_New(this, capsule_name, nullptr));
  Object key = Object::steal(PyLong_FromVoidPtr(this));
  check(PyDict_SetItem(data, key.get(), capsule.get()));
  registration_ = std::move(key);
  check(PyDict_Watch(watcher_, dict_));
}

DictWatch::~DictWatch() {
  const KeepingError kept;
  if (watcher_ < 0) return;
  PyDict_Unwatch(watcher_, dict_);
  PyDict_ClearWatcher(watcher_);
  PyObject* const data = extension_data();
  if (data != nullptr && registration_) PyDict_DelItem(data, registration_.get());
}

DictListener* DictWatch::listener_of(PyObject* dict) {
  DictListener* found = nullptr;
  PyObject* const data = extension_data();
  if (data == nullptr) return nullptr;
  PyObject* capsule = nullptr;
  for (Py_ssize_t at = 0; found == nullptr && PyDict_Next(data, &at, nullptr, &capsule);) {
    if (!PyCapsule_IsValid(capsule, capsule_name)) continue;
    auto* const watch = static_cast<DictWatch*>(PyCapsule_GetPointer(capsule, capsule_name));
    if (watch->dict_ == dict) found = &watch->listener_;
  }
  return found;
}

int DictWatch::notify(PyDict_WatchEvent event, PyObject* dict, PyObject* key, PyObject* value) {
  DictListener* const listener = listener_of(dict);
  if (listener == nullptr) return 0;
  const bool is_about_one_key = event == PyDict_EVENT_ADDED || event == PyDict_EVENT_MODIFIED ||
                                event == PyDict_EVENT_DELETED;
  // A key that is no plain string may equal any other by its own account.
  const bool can_be_told = is_about_one_key && PyUnicode_CheckExact(key);
  listener->will_change({.key = can_be_told ? key : nullptr,
                         .new_value = event == PyDict_EVENT_MODIFIED ? value : nullptr});
  return 0;
}

bool DictChange::is_about(std::string_view text) const {
  return PyUnicode_EqualToUTF8AndSize(key, text.data(), static_cast<Py_ssize_t>(text.size())) != 0;
}

}  // namespace tavik::py
