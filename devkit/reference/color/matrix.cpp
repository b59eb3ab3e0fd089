// SPDX-License-Identifier: Apache-2.0
#include "devkit/reference/color/matrix.h"

#include <cstddef>

namespace tarn::color {

Vec3 Multiply(const Mat3& m, const Vec3& v) {
  Vec3 out;
  for (size_t i = 0; i < 3; ++i) {
    out[i] = m[i][0] * v[0] + m[i][1] * v[1] + m[i][2] * v[2];
  }
  return out;
}

Mat3 Multiply(const Mat3& a, const Mat3& b) {
  Mat3 out;
  for (size_t i = 0; i < 3; ++i) {
    for (size_t j = 0; j < 3; ++j) {
      out[i][j] = a[i][0] * b[0][j] + a[i][1] * b[1][j] + a[i][2] * b[2][j];
    }
  }
  return out;
}

Mat3 Scale(const Mat3& m, double factor) { return Multiply(Diagonal({factor, factor, factor}), m); }

Mat3 Diagonal(const Vec3& v) { return {{{v[0], 0, 0}, {0, v[1], 0}, {0, 0, v[2]}}}; }

Mat3 Inverse(const Mat3& m) {
  // Cofactors, with the indices running round so that no sign is needed.
  Mat3 adjugate;
  for (size_t i = 0; i < 3; ++i) {
    for (size_t j = 0; j < 3; ++j) {
      const size_t i1 = (i + 1) % 3;
      const size_t i2 = (i + 2) % 3;
      const size_t j1 = (j + 1) % 3;
      const size_t j2 = (j + 2) % 3;
      adjugate[j][i] = m[i1][j1] * m[i2][j2] - m[i1][j2] * m[i2][j1];
    }
  }
  const double determinant =
      m[0][0] * adjugate[0][0] + m[0][1] * adjugate[1][0] + m[0][2] * adjugate[2][0];
  return Scale(adjugate, 1 / determinant);
}

}  // namespace tarn::color
