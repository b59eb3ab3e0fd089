// SPDX-License-Identifier: Apache-2.0

// A picture in memory.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace zelctl {

// Rows from top to bottom, no gap between them.
struct Picture {
  uint32_t width = 0;
  uint32_t height = 0;
  size_t channels = 3;         // red, green, blue, and alpha (not multiplied in) if 4
  uint32_t bit_depth = 8;      // of a sample, or 16
  std::vector<uint8_t> bytes;  // samples of 16 bits as the machine has them

  size_t RowBytes() const { return channels * width * bit_depth / 8; }

  // `count` rows from `first` on, as samples of T.
  template <typename T>
  std::span<T> Rows(size_t first, size_t count) {
    return {reinterpret_cast<T*>(&bytes[first * RowBytes()]), count * RowBytes() / sizeof(T)};
  }
};

}  // namespace zelctl
