// SPDX-License-Identifier: Apache-2.0

// What the entries of the "PostBlendIGC" and "PostBlendGC" tables mean. Shared
// by the mode parser, which fills them, and by whoever looks signals up in them.
//
// An entry is a code: 0 stands for 0, the largest code of the table's bit depth
// for 1. Of a table with n entries, entry i belongs to the input
//   IGC: signal i / (n - 1); the code is linear light in the mode's primaries.
//   GC:  linear light (i / (n - 1))^2 in the panel's primaries; the code is the
//        panel's signal. Squared, since signals are steep over light near black:
//        evenly spaced, the first interval alone would span a twentieth of them.
// Between two entries the blocks interpolate linearly along i. A single entry
// belongs to input 1 and is the output of every input.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tarn::reference {

inline constexpr uint32_t kMinGammaEntries = 1;
inline constexpr uint32_t kMaxBitDepth = 32;  // an entry's

enum class GammaAxis { kIgc, kGc };

// Largest code of a depth from 1 to 32 bits.
inline double MaxCode(uint32_t bit_depth) {
  return std::ldexp(1.0, static_cast<int>(bit_depth)) - 1;
}

// Nearest code of a value from 0 to 1.
inline uint32_t ToCode(double value, uint32_t bit_depth) {
  return static_cast<uint32_t>(std::lround(value * MaxCode(bit_depth)));
}

// Input that entry `i` of `n` belongs to.
inline double AxisInput(GammaAxis axis, size_t i, size_t n) {
  if (n == 1) return 1;
  const double position = static_cast<double>(i) / static_cast<double>(n - 1);
  return axis == GammaAxis::kIgc ? position : position * position;
}

// Output, from 0 to 1, of one channel's table; the input is clipped to 0 to 1.
inline double LookUp(GammaAxis axis, const std::vector<uint32_t>& table, uint32_t bit_depth,
                     double input) {
  if (table.size() == 1) return table.front() / MaxCode(bit_depth);
  const double clipped = std::clamp(input, 0.0, 1.0);
  const double last = static_cast<double>(table.size() - 1);
  const double position = last * (axis == GammaAxis::kIgc ? clipped : std::sqrt(clipped));
  const auto index = std::min(static_cast<size_t>(position), table.size() - 2);
  const double share = position - static_cast<double>(index);
  const double code = (1 - share) * table[index] + share * table[index + 1];
  return code / MaxCode(bit_depth);
}

}  // namespace tarn::reference
