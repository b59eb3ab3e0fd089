// The colours of a test chart with 24 patches.
#pragma once

#include <array>

#include "devkit/colorimetry/lab.h"

namespace zelctl {

struct ChartColor {
  const char* name;
  tarn::color::Lab lab;  // under D50
};

// ColorChecker Classic, row by row: the maker's reference for charts made before
// November 2014, CIELAB under D50, 2 degree observer, to two places.
extern const std::array<ChartColor, 24> kColorChecker;

inline constexpr const char* kColorCheckerSource =
    "ColorChecker Classic, the maker's CIELAB values under D50 (2° observer) for charts made "
    "before November 2014";

}  // namespace zelctl
