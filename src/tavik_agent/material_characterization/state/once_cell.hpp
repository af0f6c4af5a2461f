// A once-cell: a value that is made by the first call that needs it and kept from then on.
#pragma once

#include <atomic>
#include <memory>

namespace tavik::characterization {

/// Calls on several threads, or one that making the value leads to, may each find nothing and make
/// one; the first to finish is kept. Nobody waits: a lock could be held while Python code runs.
template <class Value>
class OnceCell {
 public:
  OnceCell() = default;
  OnceCell(const OnceCell&) = delete;
  OnceCell& operator=(const OnceCell&) = delete;
  ~OnceCell() { delete value_.load(); }

  template <class Make>
  const Value& get_or_make(Make make) {
    if (const Value* value = get()) return *value;
    auto fresh = std::make_unique<Value>(make());
    Value* kept = nullptr;
    return value_.compare_exchange_strong(kept, fresh.get()) ? *fresh.release() : *kept;
  }

  /// No object before the first call that needed it.
  Value* get() { return value_.load(std::memory_order_acquire); }

 private:
  std::atomic<Value*> value_ = nullptr;
};

}  // namespace tavik::characterization
