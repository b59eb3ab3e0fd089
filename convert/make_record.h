// SPDX-License-Identifier: Apache-2.0

// Making a typed record that is about to be filled.
#pragma once

#include <memory>

namespace velaricolor {

// Default-initialises instead of value-initialising.
template <typename T>
struct DefaultInitAllocator : std::allocator<T> {
  template <typename U>
  struct rebind {  // NOLINT(readability-identifier-naming): the allocator's contract
    using other = DefaultInitAllocator<U>;
  };
  DefaultInitAllocator() = default;
  template <typename U>
  explicit DefaultInitAllocator(const DefaultInitAllocator<U>& /*other*/) {}

  template <typename U>
  void construct(U* place) {  // NOLINT(readability-identifier-naming): the same
    ::new (static_cast<void*>(place)) U;
  }
};

// std::make_shared without zeroing the fields that have no initialiser: version,
// enable and paddings are set, the rest is the caller's to fill. Zeroing a
// gamut table only to overwrite it would cost a third of a mode switch.
template <typename Record>
std::shared_ptr<Record> MakeRecordToFill() {
  return std::allocate_shared<Record>(DefaultInitAllocator<Record>());
}

}  // namespace velaricolor
