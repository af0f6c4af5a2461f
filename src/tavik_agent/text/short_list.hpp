// A list that seldom has more than a few items. Those lie in the list itself: to ask the allocator
// for room and give it back takes 150 instructions, and a call makes a dozen such lists.
#pragma once

#include <cstddef>
#include <memory>
#include <utility>

namespace tavik::text {

// NOLINTBEGIN(cppcoreguidelines-pro-type-member-init): the room is filled item by item.
template <class Item, std::size_t few = 8>
class ShortList {
 public:
  ShortList() = default;
  /// Takes over the items.
  ShortList(ShortList&& other) noexcept : size_(other.size_) {
    if (other.items_ == other.nearby()) {
      std::uninitialized_move_n(other.items_, size_, items_);
      other.shorten(0);
    } else {
      items_ = std::exchange(other.items_, other.nearby());
      room_ = std::exchange(other.room_, few);
      other.size_ = 0;
    }
  }
  ShortList& operator=(ShortList&&) = delete;
  ~ShortList() {
    std::destroy_n(items_, size_);
    give_back();
  }

  void push_back(Item item) {
    if (size_ == room_) grow();
    std::construct_at(items_ + size_, std::move(item));
    ++size_;
  }

  /// Keeps the first items.
  void shorten(std::size_t size) {
    std::destroy(items_ + size, items_ + size_);
    size_ = size;
  }

  std::size_t size() const { return size_; }
  bool empty() const { return size_ == 0; }
  Item* begin() { return items_; }
  Item* end() { return items_ + size_; }
  const Item* begin() const { return items_; }
  const Item* end() const { return items_ + size_; }
  const Item& front() const { return *items_; }
  Item& operator[](std::size_t at) { return items_[at]; }
  const Item& operator[](std::size_t at) const { return items_[at]; }

 private:
  Item* nearby() { return reinterpret_cast<Item*>(storage_); }

  void grow() {
    Item* const more = std::allocator<Item>().allocate(2 * room_);
    std::uninitialized_move_n(items_, size_, more);
    std::destroy_n(items_, size_);
    give_back();
    items_ = more;
    room_ *= 2;
  }

  void give_back() {
    if (items_ != nearby()) std::allocator<Item>().deallocate(items_, room_);
  }

  alignas(Item) std::byte storage_[few * sizeof(Item)];
  Item* items_ = nearby();
  std::size_t size_ = 0;
  std::size_t room_ = few;
};
// NOLINTEND(cppcoreguidelines-pro-type-member-init)

}  // namespace tavik::text
