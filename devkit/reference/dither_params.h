// SPDX-License-Identifier: Apache-2.0

// Inner layouts of the "PostBlendDither" parameters and the "PostBlendPaDither"
// words. Shared by the mode parser, which fills them, and by whoever shows them.
//
// Both blocks dither with a 4 x 4 matrix of thresholds from 0 to 15, row by
// row, from the pipeline's depth down to `bits` of red, green and blue.
#pragma once

#include <array>
#include <cstdint>

#include "convert/dither_config.h"

namespace tarn::reference {

using DitherMatrix = std::array<uint32_t, 16>;

struct DitherParams {
  uint32_t temporal = 0;  // 1: the matrix moves from frame to frame
  std::array<uint32_t, 3> bits;
  DitherMatrix matrix;
  std::array<uint32_t, 2> reserved;
};
static_assert(sizeof(DitherParams) == sizeof(DitherPostBlendConfig::params));

struct PaDitherWords {
  uint32_t strength = 0;  // 0 to 15
  std::array<uint32_t, 3> bits;
  DitherMatrix matrix;
};
static_assert(sizeof(PaDitherWords) == sizeof(PaDitherPostBlendConfig::words));

}  // namespace tarn::reference
