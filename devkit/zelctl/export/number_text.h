// SPDX-License-Identifier: Apache-2.0

// Numbers in files that programs read: the same in every locale.
#pragma once

#include <array>
#include <charconv>
#include <string>

namespace zelctl {

// The shortest text that gives the same float or double back.
template <typename Number>
std::string ShortestText(Number value) {
  std::array<char, 32> text = {};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
  return {text.data(), end};
}

// With that many decimals, and no exponent. The value is below 1e15.
inline std::string FixedText(double value, int decimals) {
  std::array<char, 64> text = {};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                 std::chars_format::fixed, decimals)
                       .ptr;
  return {text.data(), end};
}

}  // namespace zelctl
