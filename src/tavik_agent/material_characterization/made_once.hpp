// A value that is made by the first call that needs it and kept from then on.
#pragma once

#include <atomic>
#include <memory>

namespace tavik::characterization {

/// Calls on several threads, or one that making the value leads to, may each find nothing and make
/// one; the first to finish is kept. Nobody waits: a lock could be held while host code runs.
template <class Made>
class MadeOnce {
 public:
  MadeOnce() = default;
  MadeOnce(const MadeOnce&) = delete;
  MadeOnce& operator=(const MadeOnce&) = delete;
  ~MadeOnce() { delete made_.load(); }

  template <class Make>
  const Made& get(Make make) {
    if (const Made* made = made_.load(std::memory_order_acquire)) return *made;
    auto fresh = std::make_unique<Made>(make());
    Made* kept = nullptr;
    return made_.compare_exchange_strong(kept, fresh.get()) ? *fresh.release() : *kept;
  }

  /// No object before the first call.
  Made* made() { return made_.load(std::memory_order_acquire); }

 private:
  std::atomic<Made*> made_ = nullptr;
};

}  // namespace tavik::characterization
