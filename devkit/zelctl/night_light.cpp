// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/night_light.h"

#include <algorithm>
#include <array>

#include "devkit/reference/color/primaries.h"

namespace zelctl {
namespace {

using tarn::color::Mat3;
using tarn::color::Vec3;

constexpr double kDaylightKelvin = 6504;  // correlated colour temperature of D65

// a t^3 + b t^2 + c t + d
double Cubic(const std::array<double, 4>& k, double t) {
  return ((k[0] * t + k[1]) * t + k[2]) * t + k[3];
}

// CIE 1931 xy of a black body: the cubic splines of Kim et al., "Design of
// advanced color temperature control system for HDTV applications" (2002),
// valid from 1667 K to 25000 K.
std::array<double, 2> PlanckianXy(double kelvin) {
  const double x = kelvin <= 4000
                       ? Cubic({-0.2661239e9, -0.2343589e6, 0.8776956e3, 0.179910}, 1 / kelvin)
                       : Cubic({-3.0258469e9, 2.1070379e6, 0.2226347e3, 0.240390}, 1 / kelvin);
  if (kelvin <= 2222) return {x, Cubic({-1.1063814, -1.34811020, 2.18555832, -0.20219683}, x)};
  if (kelvin <= 4000) return {x, Cubic({-0.9549476, -1.37418593, 2.09137015, -0.16748867}, x)};
  return {x, Cubic({3.0817580, -5.87338670, 3.75112997, -0.37001483}, x)};
}

// Linear sRGB of a black body of luminance 1.
Vec3 PlanckianRgb(double kelvin) {
  const auto [x, y] = PlanckianXy(kelvin);
  const Mat3 xyz_to_rgb = tarn::color::Inverse(RgbToXyz(tarn::color::kSrgb));
  return tarn::color::Multiply(xyz_to_rgb, Vec3{x / y, 1, (1 - x - y) / y});
}

}  // namespace

Mat3 NightLight(double kelvin) {
  const Vec3 daylight = PlanckianRgb(kDaylightKelvin);
  Vec3 gains = PlanckianRgb(kelvin);
  // Below about 1900 K the black body lies outside sRGB: no blue is the closest.
  for (size_t i = 0; i < 3; ++i) gains[i] = std::max(gains[i] / daylight[i], 0.0);
  const double largest = *std::max_element(gains.begin(), gains.end());
  for (double& gain : gains) gain /= largest;
  return tarn::color::Diagonal(gains);
}

}  // namespace zelctl
