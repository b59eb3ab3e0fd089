// SPDX-License-Identifier: Apache-2.0

// The host's colour transform, record of kVcColorTransform.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace velaricolor {

struct ColorTransformMatrix {
  static constexpr uint32_t kVersion = 68;

  uint32_t version = kVersion;
  // 4 x 4, column by column, applied to the column vector (R, G, B, 1) with
  // components from 0 to 1:
  //   red   = M[0] R + M[4] G + M[8]  B + M[12]
  //   green = M[1] R + M[5] G + M[9]  B + M[13]
  //   blue  = M[2] R + M[6] G + M[10] B + M[14]
  std::array<float, 16> matrix = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
};

static_assert(sizeof(ColorTransformMatrix) == ColorTransformMatrix::kVersion);
static_assert(alignof(ColorTransformMatrix) == 4);
static_assert(offsetof(ColorTransformMatrix, version) == 0);
static_assert(offsetof(ColorTransformMatrix, matrix) == 4);

}  // namespace velaricolor
