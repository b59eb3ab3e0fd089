// SPDX-License-Identifier: Apache-2.0

// 3 x 3 matrices, row by row, and the vectors they apply to.
#pragma once

#include <array>

namespace tarn::color {

using Vec3 = std::array<double, 3>;
using Mat3 = std::array<Vec3, 3>;

inline constexpr Mat3 kIdentity = {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};

Vec3 Multiply(const Mat3& m, const Vec3& v);
Mat3 Multiply(const Mat3& a, const Mat3& b);
Mat3 Scale(const Mat3& m, double factor);
Mat3 Diagonal(const Vec3& v);

// `m` must not be singular.
Mat3 Inverse(const Mat3& m);

}  // namespace tarn::color
