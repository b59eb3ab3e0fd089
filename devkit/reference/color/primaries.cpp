// SPDX-License-Identifier: Apache-2.0
#include "devkit/reference/color/primaries.h"

#include <algorithm>
#include <cmath>

namespace tarn::color {
namespace {

// ICC.1, annex E: XYZ to the sharpened cone response.
constexpr Mat3 kBradford = {
    {{0.8951, 0.2664, -0.1614}, {-0.7502, 1.7135, 0.0367}, {0.0389, -0.0685, 1.0296}}};

// XYZ of the primaries, one per column, each of luminance 1.
Mat3 PrimaryColumns(const Primaries& p) {
  const Vec3 red = ToXyz(p.red);
  const Vec3 green = ToXyz(p.green);
  const Vec3 blue = ToXyz(p.blue);
  return {{{red[0], green[0], blue[0]}, {1, 1, 1}, {red[2], green[2], blue[2]}}};
}

}  // namespace

Vec3 ToXyz(const Chromaticity& c) { return {c.x / c.y, 1, (1 - c.x - c.y) / c.y}; }

double TriangleArea(const Primaries& p) {
  return std::abs((p.green.x - p.red.x) * (p.blue.y - p.red.y) -
                  (p.blue.x - p.red.x) * (p.green.y - p.red.y));
}

Vec3 LuminanceWeights(const Primaries& p) {
  return Multiply(Inverse(PrimaryColumns(p)), ToXyz(p.white));
}

Mat3 RgbToXyz(const Primaries& p) {
  return Multiply(PrimaryColumns(p), Diagonal(LuminanceWeights(p)));
}

Mat3 BradfordAdaptation(const Chromaticity& from, const Chromaticity& to) {
  const Vec3 source = Multiply(kBradford, ToXyz(from));
  const Vec3 destination = Multiply(kBradford, ToXyz(to));
  const Vec3 gains = {destination[0] / source[0], destination[1] / source[1],
                      destination[2] / source[2]};
  return Multiply(Inverse(kBradford), Multiply(Diagonal(gains), kBradford));
}

Mat3 ConversionMatrix(const Primaries& from, const Primaries& to, bool adaptation) {
  if (from == to) return kIdentity;
  const Mat3 from_xyz = Inverse(RgbToXyz(to));
  if (adaptation) {
    const Mat3 adapted = Multiply(BradfordAdaptation(from.white, to.white), RgbToXyz(from));
    return Multiply(from_xyz, adapted);
  }
  const Mat3 absolute = Multiply(from_xyz, RgbToXyz(from));
  const Vec3 white = Multiply(absolute, Vec3{1, 1, 1});
  return Scale(absolute, 1 / *std::max_element(white.begin(), white.end()));
}

}  // namespace tarn::color
