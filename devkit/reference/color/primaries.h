// SPDX-License-Identifier: Apache-2.0

// Primaries and white points, and the linear-light matrices that follow from
// them. Colours are CIE 1931 XYZ with white at Y = 1.
#pragma once

#include "devkit/reference/color/matrix.h"

namespace tarn::color {

// CIE 1931 x and y.
struct Chromaticity {
  double x = 0;
  double y = 0;

  bool operator==(const Chromaticity&) const = default;
};

struct Primaries {
  Chromaticity red;
  Chromaticity green;
  Chromaticity blue;
  Chromaticity white;

  bool operator==(const Primaries&) const = default;
};

// ISO 11664-2 and IEC 61966-2-1, as the video standards print it.
inline constexpr Chromaticity kD65 = {0.3127, 0.3290};
// ISO 3664, graphic arts.
inline constexpr Chromaticity kD50 = {0.3457, 0.3585};
// SMPTE RP 431-2, table 1: white of theatrical projection.
inline constexpr Chromaticity kDciWhite = {0.314, 0.351};

// IEC 61966-2-1, table 1; the primaries of ITU-R BT.709.
inline constexpr Primaries kSrgb = {{0.640, 0.330}, {0.300, 0.600}, {0.150, 0.060}, kD65};
// SMPTE RP 431-2.
inline constexpr Primaries kDciP3 = {{0.680, 0.320}, {0.265, 0.690}, {0.150, 0.060}, kDciWhite};
// SMPTE EG 432-1: the same primaries with a D65 white.
inline constexpr Primaries kDisplayP3 = {kDciP3.red, kDciP3.green, kDciP3.blue, kD65};
// ITU-R BT.2020, table 3.
inline constexpr Primaries kBt2020 = {{0.708, 0.292}, {0.170, 0.797}, {0.131, 0.046}, kD65};

// XYZ of a chromaticity whose y isn't 0, at luminance 1.
Vec3 ToXyz(const Chromaticity& c);

// Twice the area of the triangle of the primaries; near zero when they lie on
// one line.
double TriangleArea(const Primaries& p);

// Luminance of red, green and blue in a white of luminance 1. The one of a
// primary is 0 for a white on the side opposite to it, negative beyond.
Vec3 LuminanceWeights(const Primaries& p);

// Linear RGB to XYZ (SMPTE RP 177). The primaries must span a triangle.
Mat3 RgbToXyz(const Primaries& p);

// Takes XYZ seen under white `from` to the corresponding XYZ under white `to`
// (Bradford transform, as in ICC.1, annex E).
Mat3 BradfordAdaptation(const Chromaticity& from, const Chromaticity& to);

// Linear light of `from` to linear light of `to`. With adaptation white becomes
// white. Without it colours stay what they are, but for a common dimming that
// lets white fit: its largest component becomes 1. Exactly the identity between
// equal primaries, so that later stages need not tell rounding from crosstalk.
Mat3 ConversionMatrix(const Primaries& from, const Primaries& to, bool adaptation);

}  // namespace tarn::color
