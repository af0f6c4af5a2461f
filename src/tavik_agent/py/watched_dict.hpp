// Notice of every change of a dict, through Python's dict watchers.
#pragma once

#include <string_view>

#include "py/object.hpp"

namespace tavik::py {

/// What is about to happen to a dict.
struct DictChange {
  PyObject* key;        ///< an exact string; no object when it cannot be told which keys change
  PyObject* new_value;  ///< what takes the place of a value; no object when none was there or none
                        ///< will be

  /// Whether the key is this text.
  bool is_about(std::string_view text) const;
};

/// Told of a change right before it takes effect. Must neither throw nor run Python code.
class DictListener {
 public:
  virtual void will_change(const DictChange& change) noexcept = 0;

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
