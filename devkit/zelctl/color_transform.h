// SPDX-License-Identifier: Apache-2.0

// The value of --color-transform.
#pragma once

#include <string>

#include "handlers/color_transform_matrix.h"

namespace zelctl {

inline constexpr const char* kColorTransformHelp =
    "identity, grayscale, inversion, night:KELVIN (1667 to 25000),\n"
    "protanomaly, deuteranomaly, tritanomaly (corrections), or 16\n"
    "numbers separated by commas: a 4 x 4 matrix column by column,\n"
    "applied to (R, G, B, 1) with components from 0 to 1";

// Throws UsageError.
velaricolor::ColorTransformMatrix ParseColorTransform(const std::string& text);

}  // namespace zelctl
