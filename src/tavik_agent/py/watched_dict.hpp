// Notice of every change of a dict, through Python's dict watchers.
#pragma once

#include "py/object.hpp"

namespace tavik::py {

/// Told of a change right before it takes effect. Must neither throw nor run Python code.
class DictListener {
 public:
  virtual void will_change(PyDict_WatchEvent event, PyObject* key,
                           PyObject* new_value) noexcept = 0;

 protected:
  ~DictListener() = default;
};

/// Watches a dict for as long as it lives. Python has eight watchers for each interpreter, of which
/// a watch takes one; is_active() tells whether it could be had. Neither the dict nor the listener
/// may go before the watch does.
class DictWatch {
 public:
  DictWatch(const Object& dict, DictListener& listener) : DictWatch(dict.get(), listener) {
    start();  // from here on the destructor undoes what was done when this throws
  }
  DictWatch(const DictWatch&) = delete;
  DictWatch& operator=(const DictWatch&) = delete;
  ~DictWatch();

  bool is_active() const { return static_cast<bool>(registration_); }

 private:
  DictWatch(PyObject* dict, DictListener& listener) : dict_(dict), listener_(listener) {}
  void start();

  static int notify(PyDict_WatchEvent event, PyObject* dict, PyObject* key, PyObject* value);
  static DictListener* listener_of(PyObject* dict);

  PyObject* dict_;  ///< borrowed
  DictListener& listener_;
  int watcher_ = -1;
  Object registration_;  ///< the key of this watch among the interpreter's own data
};

}  // namespace tavik::py
