// SPDX-License-Identifier: Apache-2.0
#include "devkit/colorimetry/ciede2000.h"

#include <cmath>
#include <numbers>

namespace tarn::color {
namespace {

constexpr double kFullTurn = 360;
constexpr double kHalfTurn = 180;

double ToRadians(double degrees) { return degrees * std::numbers::pi / kHalfTurn; }
double Cosine(double degrees) { return std::cos(ToRadians(degrees)); }

// Lightness, chroma and hue in degrees from 0 to 360; grey has hue 0.
struct Lch {
  double l;
  double c;
  double h;
};

// How much of a chroma counts as saturated: from 0 to 1, half at 25.
double Saturation(double chroma) {
  constexpr double kMiddle = 25;
  const double seventh = std::pow(chroma, 7);
  return std::sqrt(seventh / (seventh + std::pow(kMiddle, 7)));
}

// Equations 5 to 7: with a stretched by 1 + g.
Lch Stretched(const Lab& lab, double g) {
  const double a = (1 + g) * lab.a;
  const double hue = std::atan2(lab.b, a) * kHalfTurn / std::numbers::pi;
  return {lab.l, std::hypot(a, lab.b), hue < 0 ? hue + kFullTurn : hue};
}

// Equation 10: the way from one hue to the other, the short way round.
double HueStep(const Lch& from, const Lch& to) {
  if (from.c * to.c == 0) return 0;
  const double step = to.h - from.h;
  if (step > kHalfTurn) return step - kFullTurn;
  return step < -kHalfTurn ? step + kFullTurn : step;
}

// Equation 14.
double MeanHue(const Lch& one, const Lch& other) {
  const double sum = one.h + other.h;
  if (one.c * other.c == 0) return sum;
  if (std::abs(one.h - other.h) <= kHalfTurn) return sum / 2;
  return sum < kFullTurn ? (sum + kFullTurn) / 2 : (sum - kFullTurn) / 2;
}

// Equation 15.
double HueWeight(double hue) {
  return 1 - 0.17 * Cosine(hue - 30) + 0.24 * Cosine(2 * hue) + 0.32 * Cosine(3 * hue + 6) -
         0.20 * Cosine(4 * hue - 63);
}

}  // namespace

double Ciede2000(const Lab& one, const Lab& other) {
  const double plain_chroma = (std::hypot(one.a, one.b) + std::hypot(other.a, other.b)) / 2;
  const double g = 0.5 * (1 - Saturation(plain_chroma));
  const Lch from = Stretched(one, g);
  const Lch to = Stretched(other, g);

  const double lightness = (from.l + to.l) / 2;
  const double chroma = (from.c + to.c) / 2;
  const double hue = MeanHue(from, to);
  const double from_middle = (lightness - 50) * (lightness - 50);
  const double lightness_scale = 1 + 0.015 * from_middle / std::sqrt(20 + from_middle);
  const double chroma_scale = 1 + 0.045 * chroma;
  const double hue_scale = 1 + 0.015 * chroma * HueWeight(hue);
  const double blue = std::exp(-std::pow((hue - 275) / 25, 2));
  const double rotation = -2 * Saturation(chroma) * std::sin(ToRadians(2 * 30 * blue));

  const double dl = (to.l - from.l) / lightness_scale;
  const double dc = (to.c - from.c) / chroma_scale;
  const double dh =
      2 * std::sqrt(from.c * to.c) * std::sin(ToRadians(HueStep(from, to) / 2)) / hue_scale;
  return std::sqrt(dl * dl + dc * dc + dh * dh + rotation * dc * dh);
}

double Ciede2000(const Vec3& one, const Vec3& other, const Vec3& white) {
  return Ciede2000(XyzToLab(one, white), XyzToLab(other, white));
}

}  // namespace tarn::color
