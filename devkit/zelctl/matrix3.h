// 3 x 3 matrices, row by row, of the named colour transforms.
#pragma once

#include <array>

namespace zelctl {

using Matrix3 = std::array<std::array<double, 3>, 3>;
using Vector3 = std::array<double, 3>;

inline constexpr Matrix3 kIdentity3 = {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};

constexpr Matrix3 Diagonal(const Vector3& d) {
  return {{{d[0], 0, 0}, {0, d[1], 0}, {0, 0, d[2]}}};
}

constexpr Vector3 operator*(const Matrix3& m, const Vector3& v) {
  Vector3 result = {};
  for (size_t i = 0; i < 3; ++i) result[i] = m[i][0] * v[0] + m[i][1] * v[1] + m[i][2] * v[2];
  return result;
}

}  // namespace zelctl
