// Room for a text that is mostly short: asking the allocator for it and giving it back takes 200
// instructions.
#pragma once

#include <cstddef>
#include <memory>

namespace tavik::text {

// NOLINTBEGIN(cppcoreguidelines-pro-type-member-init): the room is left as it is.
class Buffer {
 public:
  /// Room for so many bytes. What was handed out before is gone.
  char* make_room(std::size_t size) {
    if (size <= sizeof nearby_) return nearby_;
    far_ = std::make_unique_for_overwrite<char[]>(size);
    return far_.get();
  }

 private:
  char nearby_[256];
  std::unique_ptr<char[]> far_;
};
// NOLINTEND(cppcoreguidelines-pro-type-member-init)

}  // namespace tavik::text
