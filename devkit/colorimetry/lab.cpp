// SPDX-License-Identifier: Apache-2.0
#include "devkit/colorimetry/lab.h"

#include <cmath>

namespace tarn::color {
namespace {

// The ends of the linear part, and its slope.
constexpr double kEdge = 6.0 / 29;
constexpr double kOffset = 4.0 / 29;
constexpr double kSlope = 841.0 / 108;

double Compress(double ratio) {
  return ratio > kEdge * kEdge * kEdge ? std::cbrt(ratio) : kSlope * ratio + kOffset;
}

double Expand(double root) { return root > kEdge ? root * root * root : (root - kOffset) / kSlope; }

}  // namespace

Lab XyzToLab(const Vec3& xyz, const Vec3& white) {
  Vec3 f;
  for (size_t i = 0; i < 3; ++i) f[i] = Compress(xyz[i] / white[i]);
  return {116 * f[1] - 16, 500 * (f[0] - f[1]), 200 * (f[1] - f[2])};
}

Vec3 LabToXyz(const Lab& lab, const Vec3& white) {
  const double y = (lab.l + 16) / 116;
  return {white[0] * Expand(y + lab.a / 500), white[1] * Expand(y),
          white[2] * Expand(y - lab.b / 200)};
}

Chromaticity ToChromaticity(const Vec3& xyz) {
  const double sum = xyz[0] + xyz[1] + xyz[2];
  return sum > 0 ? Chromaticity{xyz[0] / sum, xyz[1] / sum} : Chromaticity{};
}

UniformChromaticity ToUniform(const Chromaticity& xy) {
  const double divisor = -2 * xy.x + 12 * xy.y + 3;
  return {4 * xy.x / divisor, 9 * xy.y / divisor};
}

double UniformDistance(const Chromaticity& one, const Chromaticity& other) {
  const UniformChromaticity a = ToUniform(one);
  const UniformChromaticity b = ToUniform(other);
  return std::hypot(a.u - b.u, a.v - b.v);
}

}  // namespace tarn::color
