// A mapping argument, and the entries in it that the module reads.
#pragma once

#include <array>
#include <cstdint>

#include "host/objects.hpp"
#include "material_characterization/module.hpp"

namespace tavik::characterization {

/// A dict with few entries is read in one walk: of an intent with two, that takes 150 instructions,
/// and the look-ups of nine keys, most of them missing, a thousand. All else is asked each time.
/// What stands in for a missing mapping is made only when a function of the host is to see it. The
/// mapping itself must live as long.
class Fields {
 public:
  Fields() = default;
  explicit Fields(const host::Lent& mapping) : mapping_(mapping) {}

  /// not mapping
  bool is_empty() const { return !mapping_ || host::is_empty(mapping_); }
  /// mapping.get(key)
  host::Value get(const Module& module, InputKey key) const {
    return mapping_ ? get_in_mapping(module, key) : host::Value::null();
  }
  /// key in mapping
  bool has(const Module& module, InputKey key) const;
  /// The mapping itself.
  const host::Value& value() const;

 private:
  host::Value get_in_mapping(const Module& module, InputKey key) const;
  bool are_known(const Module& module) const;
  void walk(const Module& module) const;
  /// No object where there is no such field.
  const host::Value* find(InputKey key) const {
    const std::size_t place = places_[static_cast<std::size_t>(key)];
    return place == 0 ? nullptr : &fields_[place - 1];
  }

  mutable host::Lent mapping_;  ///< no object when it is missing
  mutable host::Seldom made_;   ///< what then stands in for it
  mutable host::Values fields_;
  /// For each key, where among them its value is, from 1 on; 0 for none.
  mutable std::array<std::uint8_t, host::Indexed<InputKey>::size> places_{};
  mutable std::uint64_t version_ = 0;  ///< of the dict when its fields were read
};

}  // namespace tavik::characterization
