// SPDX-License-Identifier: Apache-2.0

// Night light: the white of a black body instead of daylight.
#pragma once

#include "devkit/reference/color/matrix.h"

namespace zelctl {

inline constexpr double kMinKelvin = 1667;
inline constexpr double kMaxKelvin = 25000;

// Gains of red, green and blue in linear light that move the white from
// 6504 K (gains of 1) to `kelvin`, from kMinKelvin to kMaxKelvin; the largest
// of the three is 1.
tarn::color::Mat3 NightLight(double kelvin);

}  // namespace zelctl
