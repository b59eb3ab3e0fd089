// SPDX-License-Identifier: Apache-2.0

// The colours of a test chart with 24 patches.
#pragma once

#include <array>
#include <cstdint>

namespace zelctl {

struct ChartColor {
  const char* name;
  std::array<uint8_t, 3> srgb;
};

// ColorChecker Classic, row by row, in sRGB of 8 bits (IEC 61966-2-1), as its maker
// publishes it.
extern const std::array<ChartColor, 24> kColorChecker;

inline constexpr const char* kColorCheckerSource =
    "ColorChecker Classic: the 8-bit sRGB values that its maker publishes";

}  // namespace zelctl
