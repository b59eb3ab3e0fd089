// SPDX-License-Identifier: Apache-2.0
#include "devkit/reference/color/nearest_color.h"

#include <algorithm>
#include <cmath>

namespace tarn::color {
namespace {

constexpr double kLightnessWeight = 2;
constexpr double kHueWeight = 4;

double SquareSum(const Vec3& v) { return v[0] * v[0] + v[1] * v[1] + v[2] * v[2]; }

// L, a and b to weighted differences of lightness, chroma and hue about a colour.
Mat3 Weights(const Vec3& lab) {
  const double chroma = std::hypot(lab[1], lab[2]);
  if (chroma == 0) return Diagonal({std::sqrt(kLightnessWeight), 1, 1});
  const double a = lab[1] / chroma;
  const double b = lab[2] / chroma;
  const double hue = std::sqrt(kHueWeight);
  return {{{std::sqrt(kLightnessWeight), 0, 0}, {0, a, b}, {0, -hue * b, hue * a}}};
}

// Least squares of residual + slope * step over the components of `free`, the
// others of the step being 0.
Vec3 Step(const Mat3& slope, const Vec3& residual, const std::array<bool, 3>& free) {
  Mat3 normal = kIdentity;
  Vec3 right = {};
  for (size_t i = 0; i < 3; ++i) {
    if (!free[i]) continue;
    for (size_t row = 0; row < 3; ++row) right[i] -= slope[row][i] * residual[row];
    for (size_t j = 0; j < 3; ++j) {
      if (!free[j]) continue;
      normal[i][j] = i == j ? 1e-9 : 0;
      for (size_t row = 0; row < 3; ++row) normal[i][j] += slope[row][i] * slope[row][j];
    }
  }
  return Multiply(Inverse(normal), right);
}

Vec3 Clipped(Vec3 color) {
  for (double& component : color) component = std::clamp(component, 0.0, 1.0);
  return color;
}

// The components of a colour from 0 to 1 that can follow the downward slope of
// the squared residual without leaving that range.
std::array<bool, 3> FreeComponents(const Vec3& color, const Mat3& slope, const Vec3& residual) {
  std::array<bool, 3> free;
  for (size_t i = 0; i < 3; ++i) {
    double downhill = 0;
    for (size_t row = 0; row < 3; ++row) downhill -= slope[row][i] * residual[row];
    free[i] = !((color[i] <= 0 && downhill < 0) || (color[i] >= 1 && downhill > 0));
  }
  return free;
}

}  // namespace

// Gauss-Newton from the clipped colour, with steps halved until they lead downwards.
Vec3 NearestColor(const OkLab& space, const Vec3& light) {
  const Vec3 wanted = space.FromLight(light);
  const Mat3 weights = Weights(wanted);
  const auto residual_of = [&](const Vec3& color) {
    Vec3 lab = space.FromLight(color);
    for (size_t i = 0; i < 3; ++i) lab[i] -= wanted[i];
    return Multiply(weights, lab);
  };
  Vec3 color = Clipped(light);
  Vec3 residual = residual_of(color);
  constexpr int kMaxSteps = 12;
  constexpr double kSettled = 1e-5;
  double gained = 1;
  for (int round = 0; round < kMaxSteps && gained > kSettled; ++round) {
    const Mat3 slope = Multiply(weights, space.Slope(color));
    const Vec3 step = Step(slope, residual, FreeComponents(color, slope, residual));
    const double before = std::sqrt(SquareSum(residual));
    gained = 0;
    for (double length = 1; length > 1e-3 && gained <= 0; length /= 2) {
      Vec3 next;
      for (size_t i = 0; i < 3; ++i) next[i] = color[i] + length * step[i];
      next = Clipped(next);
      const Vec3 next_residual = residual_of(next);
      gained = before - std::sqrt(SquareSum(next_residual));
      if (gained <= 0) continue;
      color = next;
      residual = next_residual;
    }
  }
  return color;
}

}  // namespace tarn::color
